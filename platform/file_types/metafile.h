// Still pictures in the old metafile format (.wmf), which the toolkit cannot read.
#pragma once

#include <QByteArray>
#include <QImage>

namespace orvanta {

/// Whether these bytes, the beginning of a file, are those of a metafile.
[[nodiscard]] bool looksLikeMetafile(const QByteArray& beginning);

/// The picture of a metafile on white, in its own size at 96 dots an inch, its longer side at most
/// 4096 pixels. Null when it is none or damaged.
[[nodiscard]] QImage readMetafile(const QByteArray& bytes);

/// The same of a file. Null, too, when the file cannot be read.
[[nodiscard]] QImage readMetafileOf(const QString& file);

} // namespace orvanta
