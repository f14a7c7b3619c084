// Pictures that documents name: the one place that decides which formats are read and how large
// they may be. Anybody may have written a document.
#pragma once

#include <QImage>
#include <QImageReader>
#include <QSize>
#include <QString>

#include <functional>

namespace orvanta {

/// The most pixels of a picture: 64 megapixels.
inline constexpr qint64 kMostPixels = qint64{64} << 20;

/// Reads a picture file: bmp, jpg, gif, ico, png or webp, told by its content and turned as it
/// says, or an old metafile (wmf). Drawings that can name other files (svg) are none of them,
/// whatever their ending. within: pixels that it is scaled down to, its shape kept; empty: its own
/// size. isStopped is asked while it is read; reading ends soon after it is true. Null for no
/// regular file, or one that is damaged, too large or of another kind. Any thread.
[[nodiscard]] QImage readDocumentPicture(
    const QString& file, QSize within = {},
    const std::function<bool()>& isStopped = [] { return false; });

/// Makes the reader take only these formats, by content. False where it shows another.
[[nodiscard]] bool takesKnownFormat(QImageReader& reader);

} // namespace orvanta
