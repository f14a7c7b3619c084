// Paths for the temporary document, which does not lie where the loaded one does.
#pragma once

#include <QString>
#include <QStringList>

namespace orvanta {

/// The file that a path text means beside a document; the text itself when there is none or the
/// folder is empty. Absolute paths of existing files stay as they are.
[[nodiscard]] QString pathFoundBeside(const QString& documentFolder, const QString& pathText);

/// The same for the paths of entries path + "{}" + anything.
[[nodiscard]] QStringList entriesFoundBeside(const QString& documentFolder, QStringList entries);

} // namespace orvanta
