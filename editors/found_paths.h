// Paths for a document that does not lie where the loaded one does.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// The file that a path text means beside a document; the text itself when there is none or the
/// folder is empty. Absolute paths of existing files stay as they are.
[[nodiscard]] QString pathFoundBeside(const QString& documentFolder, const QString& pathText);

/// The path text of a loaded document for a document at target: a relative one stays only in the
/// folder that it was loaded from; anywhere else it would lead to nothing. An absolute one stays in
/// what is kept, as it may be right on the machine that it comes from.
[[nodiscard]] QString pathFor(const QString& target, const QString& documentFolder,
                              const QString& pathText);

/// The same for the paths of entries path + "{}" + anything.
[[nodiscard]] QStringList entriesFor(const QString& target, const QString& documentFolder,
                                     QStringList entries);

} // namespace orvanta
