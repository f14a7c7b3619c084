// Turns the path text of a clip, packet or picture into a file that exists.
#pragma once

#include <QString>

namespace orvanta {

/// Looks for the file that a path text means; what is stored never changes. Returns an absolute
/// path of an existing regular file, or the empty text. URLs, devices, FIFOs, sockets and folders
/// are never returned. packetFolder: the folder of the packet that names the file.
[[nodiscard]] QString locateFile(const QString& pathText, const QString& packetFolder);

/// Whether the text lies on drive A.
[[nodiscard]] bool isOnDriveA(const QString& pathText);

} // namespace orvanta
