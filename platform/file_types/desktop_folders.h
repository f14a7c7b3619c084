// Where a desktop keeps settings and data: the base folders of its standards, with their defaults.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// Read from the environment at every call. Paths without a separator at their end; entries of the
/// environment that are not absolute are left out, as the standard wants.
struct DesktopFolders
{
    [[nodiscard]] static QString configHome();        // the user's settings
    [[nodiscard]] static QStringList configFolders(); // configHome, then the system's, best first
    [[nodiscard]] static QString dataHome();          // the user's data
    [[nodiscard]] static QStringList dataFolders();   // dataHome, then the system's, best first
    /// False in a sandbox, where the user's folders are its own and the desktop never looks.
    /// sandboxFile: what a sandbox has at its root, another one for tests.
    [[nodiscard]] static bool
    areSeen(const QString& sandboxFile = QStringLiteral("/.flatpak-info"));
    /// Names of the running desktop in lower case, best first: "ubuntu", "gnome".
    [[nodiscard]] static QStringList desktopNames();
};

} // namespace orvanta
