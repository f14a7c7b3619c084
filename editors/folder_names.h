// What folders hold: names by pattern, in the order in which people sort. No windows here.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// Names of a folder's files that match a pattern like "*.avi;*.mpg" without regard to letter case,
/// a2 before a10. Hidden files, and names that no line of a file can hold, are left out. Any
/// thread.
[[nodiscard]] QStringList fileNames(const QString& folder, const QString& pattern);

/// Names of the folders in a folder, links to folders included, in the same order. Hidden ones are
/// left out.
[[nodiscard]] QStringList folderNames(const QString& folder);

/// Mount points of volumes that a user would look for: discs, sticks, network folders.
[[nodiscard]] QStringList mountedVolumes();
/// The same from the text of a mount table.
[[nodiscard]] QStringList volumesOfMountTable(const QByteArray& table);

/// The path with its separator at the end.
[[nodiscard]] QString AddBackslash(const QString& path);

/// Whether the path is absolute and the folder can be listed.
[[nodiscard]] bool FolderExists(const QString& path);

/// Where a picker starts: the stored folder, or the user's own when that one is not there.
[[nodiscard]] QString startFolder(const QString& stored);

/// What somebody typed or pasted into the path box.
struct TypedPath
{
    QString folder; // an existing folder; empty when the text means none
    QString name;   // a name in it; empty when the text is the folder itself
};
/// Takes absolute and relative paths, "~", file: addresses and quoted paths.
[[nodiscard]] TypedPath typedPath(const QString& text, const QString& currentFolder);

} // namespace orvanta
