#include "platform/media/mpv_handle.h"

#include "core/log.h"
#include "core/run_time_error.h"

#include <vector>

namespace orvanta {

constexpr unsigned kMajorShift = 16;

static bool versionFits()
{
    return mpv_client_api_version() >> kMajorShift == MPV_CLIENT_API_VERSION >> kMajorShift;
}

static mpv_handle* createPlayer()
{
    mpv_handle* handle = versionFits() ? mpv_create() : nullptr;
    if (handle == nullptr) {
        qCCritical(logErrors, "the player library cannot be used");
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return handle;
}

static bool accepted(int result, const char* what)
{
    if (result < 0) {
        qCInfo(logErrors, "player library, %s: %s", what, mpv_error_string(result));
    }
    return result >= 0;
}

MpvHandle::MpvHandle()
    : m_handle(createPlayer())
{}

MpvHandle::~MpvHandle()
{
    mpv_set_wakeup_callback(m_handle.get(), nullptr, nullptr);
}

bool MpvHandle::setOption(const char* name, const QByteArray& value)
{
    return accepted(mpv_set_option_string(get(), name, value.constData()), name);
}

bool MpvHandle::setOption(const char* name, mpv_node value)
{
    return accepted(mpv_set_option(get(), name, MPV_FORMAT_NODE, &value), name);
}

void MpvHandle::initialize()
{
    mpv_set_wakeup_callback(get(), &MpvHandle::wakeUp, this);
    mpv_request_log_messages(get(), "error");
    if (!accepted(mpv_initialize(get()), "start")) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
}

void MpvHandle::command(const QByteArrayList& words, quint64 id)
{
    std::vector<const char*> arguments;
    for (const QByteArray& word : words) {
        arguments.push_back(word.constData());
    }
    arguments.push_back(nullptr);
    accepted(mpv_command_async(get(), id, arguments.data()), words.first().constData());
}

void MpvHandle::set(const char* property, bool value)
{
    int flag = value ? 1 : 0;
    accepted(mpv_set_property_async(get(), 0, property, MPV_FORMAT_FLAG, &flag), property);
}

void MpvHandle::set(const char* property, double value)
{
    accepted(mpv_set_property_async(get(), 0, property, MPV_FORMAT_DOUBLE, &value), property);
}

void MpvHandle::set(const char* property, const QByteArray& value)
{
    const char* text = value.constData();
    accepted(mpv_set_property_async(get(), 0, property, MPV_FORMAT_STRING, &text), property);
}

void MpvHandle::ask(const char* property, mpv_format format, quint64 id)
{
    accepted(mpv_get_property_async(get(), id, property, format), property);
}

void MpvHandle::observe(const char* property, mpv_format format, quint64 id)
{
    accepted(mpv_observe_property(get(), id, property, format), property);
}

mpv_event* MpvHandle::nextEvent()
{
    mpv_event* event = mpv_wait_event(get(), 0);
    return event->event_id == MPV_EVENT_NONE ? nullptr : event;
}

// Called on the library's threads, where nothing of it may be called.
void MpvHandle::wakeUp(void* self)
{
    auto* handle = static_cast<MpvHandle*>(self);
    if (!handle->m_announced.exchange(true)) {
        QMetaObject::invokeMethod(handle, &MpvHandle::announceEvents, Qt::QueuedConnection);
    }
}

void MpvHandle::announceEvents()
{
    m_announced = false;
    Q_EMIT eventsWaiting();
}

} // namespace orvanta
