#include "editors/small_picture.h"

#include "platform/file_types/metafile.h"

#include <QImageReader>

namespace orvanta {

/// Scaled while it is read: a photograph of any size costs little.
static QImage readWithin(const QString& file, QSize bounds)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize whole = reader.size();
    if (whole.width() > bounds.width() || whole.height() > bounds.height()) {
        reader.setScaledSize(whole.scaled(bounds, Qt::KeepAspectRatio));
    }
    return reader.read();
}

QPixmap smallPicture(const QString& file, QSize size, qreal devicePixelRatio)
{
    if (file.isEmpty()) {
        return {};
    }
    const QSize bounds = size * devicePixelRatio;
    QImage image = readWithin(file, bounds);
    if (image.isNull()) {
        image = readMetafileOf(file);
    }
    if (image.width() > bounds.width() || image.height() > bounds.height()) {
        image = image.scaled(bounds, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}

} // namespace orvanta
