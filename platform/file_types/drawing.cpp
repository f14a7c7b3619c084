#include "platform/file_types/drawing.h"

#include <QPainter>
#include <QSvgRenderer>

namespace orvanta {

QPixmap drawingPixmap(const QString& name, QSize size, qreal devicePixelRatio)
{
    QPixmap pixmap((QSizeF(size) * devicePixelRatio).toSize());
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(name);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QSize drawingSize(const QString& name)
{
    return QSvgRenderer(name).defaultSize();
}

void paintDrawing(QPainter* painter, const QRect& place, const QByteArray& drawing)
{
    QSvgRenderer(drawing).render(painter, place);
}

} // namespace orvanta
