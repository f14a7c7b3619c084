// Keeping a Wayland session awake by the compositor's own protocol.
#pragma once

#include <QHash>
#include <QObject>

struct wl_display;
struct wl_registry;
struct zwp_idle_inhibit_manager_v1;
struct zwp_idle_inhibitor_v1;
class QWindow;

namespace orvanta {

/// The connection of this program's windows; null under another display system.
[[nodiscard]] wl_display* waylandDisplay();

/// While it holds, every window of the program that is in sight says that the session is in use
/// (zwp_idle_inhibit_manager_v1). What the compositor offers comes from the event loop: nothing is
/// waited for. Under another display system, or a compositor without it, nothing happens.
/// Interface thread only; goes before the application object.
class WaylandAwake : public QObject
{
    Q_OBJECT

public:
    explicit WaylandAwake(QObject* parent = nullptr);
    ~WaylandAwake() override;

    void hold(bool awake);
    /// Whether the compositor has been told of a window.
    [[nodiscard]] bool isHeld() const { return !m_inhibitors.isEmpty(); }

    /// What the compositor offers, one call each.
    void offered(uint32_t name, const char* interface);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectToCompositor();
    void inhibitAll();
    void inhibit(QWindow& window);
    void letGo(QWindow* window);
    void letGoOfAll();

    bool m_wanted = false;
    wl_registry* m_registry = nullptr;
    zwp_idle_inhibit_manager_v1* m_manager = nullptr;
    QHash<QWindow*, zwp_idle_inhibitor_v1*> m_inhibitors;
};

} // namespace orvanta
