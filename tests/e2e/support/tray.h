// The notification area of a test's desktop, and what its user does there.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

#include <vector>

namespace orvanta::e2e {

struct TrayEntry
{
    int id = 0;
    QString caption; // access key marked by "_"; empty for a separator
    bool isSeparator = false;
    bool isEnabled = true;
};

/// A tray with a host. Programs find it only when it is there before they start.
class Tray
{
public:
    explicit Tray(const Desktop& desktop);
    ~Tray();
    Tray(const Tray&) = delete;
    Tray& operator=(const Tray&) = delete;

    [[nodiscard]] bool isReady() const { return m_ready; }
    /// Waits until exactly so many icons are shown.
    [[nodiscard]] bool waitForIcons(int count);
    [[nodiscard]] QStringList icons();

    // Of the one icon that is shown.
    [[nodiscard]] QString toolTip();
    [[nodiscard]] bool hasPicture();
    void leftClick();
    [[nodiscard]] std::vector<TrayEntry> menu();
    /// The captions of the menu, "-" for a separator.
    [[nodiscard]] QStringList captions();
    /// Clicks the entry with this caption. False when there is none.
    [[nodiscard]] bool choose(const QString& caption);

private:
    QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments);
    QVariant itemProperty(const QString& name);

    QString m_busName;
    QDBusConnection m_bus;
    OwnedProcess m_watcher;
    bool m_ready = false;
};

} // namespace orvanta::e2e
