#include "playback/still_picture.h"

#include "core/log.h"
#include "platform/file_types/metafile.h"

#include <QImageReader>

namespace orvanta {

using namespace Qt::StringLiterals;

static bool isKnownFormat(const QByteArray& format)
{
    static const QByteArrayList formats = {"bmp", "jpeg", "jpg", "gif", "ico", "png", "webp"};
    return formats.contains(format);
}

static QImage readByToolkit(const QString& file)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return isKnownFormat(reader.format()) ? reader.read() : QImage();
}

QImage readStillPicture(const QString& file)
{
    if (file.isEmpty()) {
        return {};
    }
    QImage image = readByToolkit(file);
    if (image.isNull()) {
        image = readMetafileOf(file);
    }
    if (image.isNull()) {
        qCInfo(logErrors, "no picture of a kind in use in %ls", qUtf16Printable(file));
    }
    return image;
}

} // namespace orvanta
