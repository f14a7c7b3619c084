// Keeps the desktop from dimming, locking or sleeping while a clip runs.
#pragma once

#include "platform/screen/wayland_awake.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace orvanta {

/// Asks the desktop's screen saver service and, where there is none, a Wayland compositor itself
/// and the portal, which agrees even where nobody listens to it. The calls are not waited for.
/// Where nothing of that is, nothing happens, and the log says so.
class IdleInhibition : public QObject
{
    Q_OBJECT

public:
    explicit IdleInhibition(QDBusConnection bus, QObject* parent = nullptr);
    ~IdleInhibition() override;

    /// Holds the desktop awake, or lets it go again. Asking twice is asking once.
    void hold(bool awake);
    /// Whether a service has agreed, or the compositor has been told.
    [[nodiscard]] bool isHeld() const
    {
        return m_hasCookie || !m_request.isEmpty() || m_compositor.isHeld();
    }

private:
    void ask();
    void askPortal();
    void release();
    void noteCookie(quint32 cookie);
    void noteRequest(const QString& path);

    void askCompositor();

    QDBusConnection m_bus;
    WaylandAwake m_compositor;
    bool m_wanted = false;
    bool m_asking = false;     // an answer is on the way
    bool m_isAtPortal = false; // the portal's: there is no screen saver service
    bool m_hasCookie = false;  // held by the screen saver service
    quint32 m_cookie = 0;
    QString m_request; // held by the portal: the object to close; empty when not
};

} // namespace orvanta
