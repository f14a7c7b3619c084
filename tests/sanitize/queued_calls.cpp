// In the tests under the thread sanitizer only. Qt is built without it, so the sanitizer does not
// see the lock of Qt's event queue and takes what a call carries from thread to thread for
// unguarded. This says of each queued call what the queue guarantees: what was done before it was
// queued is done when it runs.

#include <QObject>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

class OrderedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit OrderedCall(QtPrivate::QSlotObjectBase* call)
        : QSlotObjectBase(&OrderedCall::run),
          m_call(call)
    {
        __tsan_release(this);
    }

private:
    static void run(int what, QSlotObjectBase* self, QObject* receiver, void** arguments, bool*)
    {
        __tsan_acquire(self);
        auto* ordered = static_cast<OrderedCall*>(self);
        if (what == Call) {
            ordered->m_call->call(receiver, arguments);
        } else if (what == Destroy) {
            ordered->m_call->destroyIfLastRef();
            delete ordered;
        }
    }

    QtPrivate::QSlotObjectBase* m_call;
};

} // namespace

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* result)
{
    using Invoke = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static const auto invoke = reinterpret_cast<Invoke>(dlsym(
        RTLD_NEXT, "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseE"
                   "N2Qt14ConnectionTypeEPv"));
    return invoke(object, new OrderedCall(slot), type, result);
}
