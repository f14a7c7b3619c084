// The still picture of a packet, shown for clips that have no picture of their own.
#pragma once

#include <QImage>
#include <QString>

namespace orvanta {

/// Reads a picture file (bmp, jpg, gif, ico, png, webp; told by its content, turned as it says).
/// Null when the file is empty, missing, damaged, too large or of another kind.
[[nodiscard]] QImage readStillPicture(const QString& file);

} // namespace orvanta
