#include "editors/small_picture.h"

#include <QImageReader>

namespace orvanta {

QPixmap smallPicture(const QString& file, QSize size, qreal devicePixelRatio)
{
    if (file.isEmpty()) {
        return {};
    }
    QImageReader reader(file);
    reader.setAutoTransform(true);
    const QSize bounds = size * devicePixelRatio;
    const QSize whole = reader.size();
    // Scaled while it is read: a photograph of any size costs little.
    if (whole.width() > bounds.width() || whole.height() > bounds.height()) {
        reader.setScaledSize(whole.scaled(bounds, Qt::KeepAspectRatio));
    }
    QImage image = reader.read();
    if (image.width() > bounds.width() || image.height() > bounds.height()) {
        image = image.scaled(bounds, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}

} // namespace orvanta
