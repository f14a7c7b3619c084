// Vector drawings (SVG): the one place that renders them.
#pragma once

#include <QByteArray>
#include <QPixmap>
#include <QRect>
#include <QSize>
#include <QString>

class QPainter;

namespace orvanta {

/// The drawing of a resource or file, as large as fits the size (logical pixels) in its own shape,
/// on nothing; crisp at this scale of the screen.
[[nodiscard]] QPixmap drawingPixmap(const QString& name, QSize size, qreal devicePixelRatio);

/// The drawing's own size, logical pixels.
[[nodiscard]] QSize drawingSize(const QString& name);

/// Paints the bytes of a drawing, stretched to fill the place.
void paintDrawing(QPainter* painter, const QRect& place, const QByteArray& drawing);

} // namespace orvanta
