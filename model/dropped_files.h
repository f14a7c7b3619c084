// The files that another program names by their addresses.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QUrl>

namespace orvanta {

/// The absolute path that a file: address means; empty for any other address and for a file of
/// another machine. Some programs write this machine's own name before the path.
[[nodiscard]] QString fileOfAddress(const QUrl& address);

/// The local paths in a text/uri-list, in its order. Passed over, each with a line in the log:
/// addresses that are no files of this machine, and names whose bytes are no UTF-8, which no text
/// can hold.
[[nodiscard]] QStringList filesOfUriList(const QByteArray& uriList);

} // namespace orvanta
