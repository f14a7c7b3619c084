// A picture file, small.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace orvanta {

/// The picture scaled into the size (logical pixels), aspect kept, never enlarged. Null when the
/// file is no picture that can be read.
[[nodiscard]] QPixmap smallPicture(const QString& file, QSize size, qreal devicePixelRatio);

} // namespace orvanta
