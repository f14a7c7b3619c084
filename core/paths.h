// Path texts. A text that begins with "/" is separated by "/" alone, any other by "/" and "\".
#pragma once

#include <QString>

namespace orvanta {

/// Whether a path text means one place wherever it stands: it begins with "/", "\" or a drive
/// ("C:\", "C:/").
[[nodiscard]] bool isAbsolutePathText(const QString& pathText);
/// The text up to and including its last separator; empty without one.
[[nodiscard]] QString folderOfPath(const QString& path);
/// The part after the last separator; the whole text without one.
[[nodiscard]] QString fileNameOfPath(const QString& path);
/// The file name up to its last "."; empty when the path has no separator or the name no ".".
[[nodiscard]] QString clipNameOfPath(const QString& path);
/// Folder and name joined by the separator that the folder already uses ("/" when it has none),
/// added only when the folder does not end in one.
[[nodiscard]] QString joinPath(const QString& folder, const QString& name);
/// The last three characters, upper-cased: "VXL", "VXG" or anything else.
[[nodiscard]] QString kindOfPath(const QString& path);
/// A name that begins with a backslash ("\orvanta.ini", "\icons\") below the application folder.
[[nodiscard]] QString programFile(const QString& folder, const QString& name);

} // namespace orvanta
