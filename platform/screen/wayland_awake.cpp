#include "platform/screen/wayland_awake.h"

#include "core/log.h"
#include "idle-inhibit-unstable-v1-client-protocol.h"

#include <QGuiApplication>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <cstring>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Null under another display system. The interface is the toolkit's own affair and its layout may
/// change with any release: a library of another release than the program was built for is not
/// asked.
static QPlatformNativeInterface* waylandInterface()
{
    const bool isKnown = QString::fromLatin1(qVersion()).section(u'.', 0, 1) ==
                         QStringLiteral(QT_VERSION_STR).section(u'.', 0, 1);
    const bool isWayland = QGuiApplication::platformName().startsWith("wayland"_L1);
    return isKnown && isWayland ? QGuiApplication::platformNativeInterface() : nullptr;
}

wl_display* waylandDisplay()
{
    QPlatformNativeInterface* native = waylandInterface();
    return native == nullptr
               ? nullptr
               : static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display"));
}

/// Null while the window is hidden.
static wl_surface* surfaceOf(QWindow& window)
{
    QPlatformNativeInterface* native = waylandInterface();
    return native == nullptr || window.handle() == nullptr
               ? nullptr
               : static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
}

static void sayOffer(void* awake, wl_registry* /*registry*/, uint32_t name, const char* interface,
                     uint32_t /*version*/)
{
    static_cast<WaylandAwake*>(awake)->offered(name, interface);
}

// Compositors keep this one for as long as they run.
static void sayWithdrawal(void* /*awake*/, wl_registry* /*registry*/, uint32_t /*name*/) {}

constexpr wl_registry_listener kListener = {.global = sayOffer, .global_remove = sayWithdrawal};

WaylandAwake::WaylandAwake(QObject* parent)
    : QObject(parent)
{}

WaylandAwake::~WaylandAwake()
{
    letGoOfAll();
    if (m_manager != nullptr) {
        zwp_idle_inhibit_manager_v1_destroy(m_manager);
    }
    if (m_registry != nullptr) {
        wl_registry_destroy(m_registry);
    }
}

void WaylandAwake::hold(bool awake)
{
    if (m_wanted == awake) {
        return;
    }
    m_wanted = awake;
    if (!awake) {
        QCoreApplication::instance()->removeEventFilter(this);
        return letGoOfAll();
    }
    QCoreApplication::instance()->installEventFilter(this);
    connectToCompositor();
    inhibitAll();
}

/// On the toolkit's own connection and queue: its event loop delivers what comes.
void WaylandAwake::connectToCompositor()
{
    wl_display* display = m_registry == nullptr ? waylandDisplay() : nullptr;
    if (display == nullptr) {
        return;
    }
    m_registry = wl_display_get_registry(display);
    wl_registry_add_listener(m_registry, &kListener, this);
    wl_display_flush(display);
}

void WaylandAwake::offered(uint32_t name, const char* interface)
{
    const bool isManager = std::strcmp(interface, zwp_idle_inhibit_manager_v1_interface.name) == 0;
    if (m_manager == nullptr && isManager) {
        m_manager = static_cast<zwp_idle_inhibit_manager_v1*>(
            wl_registry_bind(m_registry, name, &zwp_idle_inhibit_manager_v1_interface, 1));
        inhibitAll();
    }
}

void WaylandAwake::inhibitAll()
{
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->isExposed()) {
            inhibit(*window);
        }
    }
}

void WaylandAwake::inhibit(QWindow& window)
{
    wl_surface* surface = surfaceOf(window);
    if (!m_wanted || m_manager == nullptr || surface == nullptr || m_inhibitors.contains(&window)) {
        return;
    }
    const bool isFirst = m_inhibitors.isEmpty();
    m_inhibitors.insert(&window, zwp_idle_inhibit_manager_v1_create_inhibitor(m_manager, surface));
    if (isFirst) {
        qCInfo(logDesktop, "the compositor keeps the session awake");
    }
}

void WaylandAwake::letGo(QWindow* window)
{
    if (zwp_idle_inhibitor_v1* inhibitor = m_inhibitors.take(window)) {
        zwp_idle_inhibitor_v1_destroy(inhibitor);
    }
}

void WaylandAwake::letGoOfAll()
{
    if (!m_inhibitors.isEmpty()) {
        qCInfo(logDesktop, "the compositor may let the session sleep");
    }
    for (zwp_idle_inhibitor_v1* inhibitor : std::as_const(m_inhibitors)) {
        zwp_idle_inhibitor_v1_destroy(inhibitor);
    }
    m_inhibitors.clear();
    if (wl_display* display = m_manager == nullptr ? nullptr : waylandDisplay()) {
        wl_display_flush(display);
    }
}

/// A hidden window loses its surface and gets another when it is shown again.
bool WaylandAwake::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = qobject_cast<QWindow*>(watched);
    if (window == nullptr) {
        return false;
    }
    if (event->type() == QEvent::Expose && window->isTopLevel() && window->isExposed()) {
        inhibit(*window);
    } else if (event->type() == QEvent::Hide || event->type() == QEvent::PlatformSurface) {
        letGo(window);
    }
    return false;
}

} // namespace orvanta
