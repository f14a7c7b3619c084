#include "platform/screen/minimised_start.h"

#include "core/log.h"
#include "platform/screen/x11.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QList>
#include <QTimer>

#include <unistd.h>

namespace orvanta {

constexpr int kLookEveryMs = 100;
constexpr int kGiveUpMs = 10000;

namespace {

/// The windows of other programs, as the window manager tells of them.
class ForeignWindows
{
public:
    explicit ForeignWindows(xcb_connection_t* connection)
        : m_connection(connection),
          m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root),
          m_clientList(x11Atom(connection, "_NET_CLIENT_LIST")),
          m_processId(x11Atom(connection, "_NET_WM_PID")),
          m_changeState(x11Atom(connection, "WM_CHANGE_STATE"))
    {}

    [[nodiscard]] QList<xcb_window_t> all() const { return numbers(m_root, m_clientList); }

    /// 0 when the window does not say.
    [[nodiscard]] pid_t processOf(xcb_window_t window) const
    {
        const QList<uint32_t> ids = numbers(window, m_processId);
        return ids.empty() ? 0 : static_cast<pid_t>(ids.front());
    }

    void minimise(xcb_window_t window) const
    {
        constexpr uint32_t kIconicState = 3;
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = m_changeState;
        message.data.data32[0] = kIconicState;
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message)); // the protocol's own view
        xcb_flush(m_connection);
    }

private:
    [[nodiscard]] QList<uint32_t> numbers(xcb_window_t window, xcb_atom_t property) const
    {
        constexpr uint32_t kMost = 4096;
        const auto cookie = xcb_get_property(m_connection, 0, window, property,
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, kMost);
        const X11Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection, cookie, nullptr), &std::free);
        if (!reply || reply->format != 32) {
            return {};
        }
        const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
        return QList<uint32_t>(values, values + reply->value_len);
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    xcb_atom_t m_clientList;
    xcb_atom_t m_processId;
    xcb_atom_t m_changeState;
};

} // namespace

/// Whether there was such a window. A companion is the leader of its session, in which its
/// children are, too.
static bool minimiseWindowOf(pid_t session)
{
    const ForeignWindows windows(x11Connection());
    for (const xcb_window_t window : windows.all()) {
        const pid_t process = windows.processOf(window);
        if (process > 0 && ::getsid(process) == session) {
            windows.minimise(window);
            qCInfo(logDesktop, "minimised the window of process %d", static_cast<int>(process));
            return true;
        }
    }
    return false;
}

void minimiseFirstWindow(qint64 companion)
{
    if (x11Connection() == nullptr) {
        qCInfo(logDesktop, "this display system starts no program minimised");
        return;
    }
    auto* look = new QTimer(qApp);
    QElapsedTimer since;
    since.start();
    QObject::connect(look, &QTimer::timeout, look, [=] {
        if (minimiseWindowOf(static_cast<pid_t>(companion)) || since.hasExpired(kGiveUpMs)) {
            look->stop();
            look->deleteLater();
        }
    });
    look->start(kLookEveryMs);
}

} // namespace orvanta
