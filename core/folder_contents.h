// What a folder holds, by name, in the order in which people sort.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// Names of a folder's files that match a pattern like "*.avi;*.mpg" without regard to letter case,
/// a2 before a10. Hidden files, and names that are no text, are left out. Any thread.
[[nodiscard]] QStringList namesOfFiles(const QString& folder, const QString& pattern);

/// Names of the folders in a folder, links to folders included, in the same order. Hidden ones are
/// left out.
[[nodiscard]] QStringList namesOfFolders(const QString& folder);

/// Sorts names without regard to letter case, numbers in them by value.
void sortNaturally(QStringList& names);

} // namespace orvanta
