#include "platform/screen/desktop_tray.h"

#include "platform/screen/x11.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QTimer>

#include <chrono>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString kWatcher = u"org.kde.StatusNotifierWatcher"_s;
const QString kWatcherObject = u"/StatusNotifierWatcher"_s;
constexpr int kAnswerMs = 1000;

// Longer than a session takes to start its panel.
constexpr auto kPatience = 10s;

/// The older kind of tray, which owns a selection of the first screen.
static bool hasX11Tray()
{
    xcb_connection_t* connection = x11Connection();
    if (connection == nullptr) {
        return false;
    }
    const xcb_atom_t selection = x11Atom(connection, "_NET_SYSTEM_TRAY_S0");
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection),
                                      nullptr),
        &std::free);
    return reply && reply->owner != XCB_WINDOW_NONE;
}

DesktopTray::DesktopTray(const QDBusConnection& bus)
    : m_bus(bus),
      m_watcher(kWatcher, bus, QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &DesktopTray::lookAgain);
    m_bus.connect(kWatcher, kWatcherObject, kWatcher, u"StatusNotifierHostRegistered"_s, this,
                  SLOT(lookAgain()));
    if (x11Connection() != nullptr) {
        // An icon that finds no tray at all is one of the older kind, which waits by itself.
        QTimer::singleShot(kPatience, this, &DesktopTray::appeared);
    }
}

bool DesktopTray::isThere() const
{
    return hasHost() || hasX11Tray();
}

/// A watcher alone collects icons, but it takes a host to show them.
bool DesktopTray::hasHost() const
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        kWatcher, kWatcherObject, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << kWatcher << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    const QDBusReply<QDBusVariant> answer = m_bus.call(question, QDBus::Block, kAnswerMs);
    return answer.isValid() && answer.value().variant().toBool();
}

void DesktopTray::lookAgain()
{
    if (hasHost()) {
        Q_EMIT appeared();
    }
}

} // namespace orvanta
