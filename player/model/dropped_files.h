// The files that a drag source names.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace orvanta {

/// The local paths in a text/uri-list, in its order. Passed over, each with a line in the log:
/// addresses that are no files of this machine, and names whose bytes are no UTF-8, which no text
/// can hold.
[[nodiscard]] QStringList filesOfUriList(const QByteArray& uriList);

} // namespace orvanta
