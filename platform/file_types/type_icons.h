// Icons of file types: .ico files of the program, pictures of the desktop's icon theme.
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace orvanta {

/// "\icons\" + e + ".ico": the standard icon of a type, the user's own or the installed one.
[[nodiscard]] QString standardIcon(const QString& applicationFolder, const QString& extension);

/// F + "\" + e + ".ico": the icon of a type in use. Until the user chooses one that is the standard
/// icon.
[[nodiscard]] QString currentIcon(const QString& applicationFolder, const QString& extension);

/// The name under which the icon theme keeps the icon of a type of content.
[[nodiscard]] QString themeIconName(const QString& mimeType);

/// The picture of an .ico file that is best at this size, not larger; null when there is none.
/// side: pixels.
[[nodiscard]] QImage readIcon(const QString& icoFile, int side);

/// The user's part of the icon theme that every desktop falls back to.
[[nodiscard]] QString userIconTheme();

/// Makes the .ico file's pictures the icons of these names in the theme's folder. May take long;
/// can run in any thread. Files of other makers are left alone.
void writeThemeIcons(const QString& theme, const QString& icoFile, const QStringList& names);
/// Takes such icons out of the theme again.
void removeThemeIcons(const QString& theme, const QStringList& names);

} // namespace orvanta
