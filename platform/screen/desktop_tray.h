// Whether the desktop has a notification area, and when it comes to have one.
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace orvanta {

/// The toolkit looks for a tray once, when the first icon is made, and keeps to what it found. A
/// program that starts with the session may be there before the desktop's panel, so icons wait
/// until this says that they can be made.
class DesktopTray : public QObject
{
    Q_OBJECT

public:
    explicit DesktopTray(const QDBusConnection& bus);

    /// Whether an icon that is made now would be shown.
    [[nodiscard]] bool isThere() const;

Q_SIGNALS:
    /// A tray may have come: now is the time to make an icon.
    void appeared();

private Q_SLOTS:
    void lookAgain();

private:
    [[nodiscard]] bool hasHost() const;

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
};

} // namespace orvanta
