// The file of another program, as it is on the disk.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvanta {

/// The most of a text that is read, bytes.
inline constexpr qint64 kMostTextBytes = qint64{16} << 20;

/// The whole of a regular file, or of a link to one; its first bytes when it is larger than most.
struct SourceBytes
{
    QByteArray bytes;
    bool isWhole = true;
};
/// None for what is no such file or cannot be read.
[[nodiscard]] std::optional<SourceBytes> sourceBytes(const QString& path,
                                                     qint64 most = kMostTextBytes);

} // namespace orvanta
