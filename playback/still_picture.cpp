#include "playback/still_picture.h"

#include "core/log.h"

#include <QImageReader>

namespace orvanta {

namespace {

using namespace Qt::StringLiterals;

bool isKnownFormat(const QByteArray& format)
{
    static const QByteArrayList formats = {"bmp", "jpeg", "jpg", "gif", "ico", "png", "webp"};
    return formats.contains(format);
}

} // namespace

QImage readStillPicture(const QString& file)
{
    if (file.isEmpty()) {
        return {};
    }
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const bool known = isKnownFormat(reader.format());
    QImage image = known ? reader.read() : QImage();
    if (image.isNull()) {
        qCInfo(logErrors, "no picture in %ls: %ls", qUtf16Printable(file),
               qUtf16Printable(known ? reader.errorString() : u"not a kind of picture in use"_s));
    }
    return image;
}

} // namespace orvanta
