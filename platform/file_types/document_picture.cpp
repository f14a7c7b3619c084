#include "platform/file_types/document_picture.h"

#include "platform/file_types/metafile.h"
#include "platform/process/folder_search.h"

#include <QByteArrayList>
#include <QFile>

namespace orvanta {

/// Megabytes for one picture: what 64 megapixels take.
constexpr int kAllocationLimit = 257;

namespace {

/// A file that seems to end as soon as nobody waits for it: some formats keep their decoder busy
/// for minutes with a few kilobytes.
class StoppableFile : public QFile
{
public:
    StoppableFile(const QString& name, const std::function<bool()>& isStopped)
        : QFile(name),
          m_isStopped(isStopped)
    {}

protected:
    qint64 readData(char* data, qint64 size) override
    {
        return m_isStopped() ? -1 : QFile::readData(data, size);
    }

private:
    const std::function<bool()>& m_isStopped;
};

} // namespace

static bool isTooLarge(QSize size)
{
    return qint64{size.width()} * size.height() > kMostPixels;
}

bool takesKnownFormat(QImageReader& reader)
{
    static const QByteArrayList formats = {"bmp", "jpeg", "jpg", "gif", "ico", "png", "webp"};
    reader.setDecideFormatFromContent(true);
    return formats.contains(reader.format()) && !isTooLarge(reader.size());
}

/// Scaled while it is read: a photograph of any size costs little.
static QImage readByToolkit(QIODevice& file, QSize within)
{
    QImageReader reader(&file);
    if (!takesKnownFormat(reader)) {
        return {};
    }
    reader.setAutoTransform(true);
    const QSize whole = reader.size();
    if (!within.isEmpty() && (whole.width() > within.width() || whole.height() > within.height())) {
        reader.setScaledSize(whole.scaled(within, Qt::KeepAspectRatio));
    }
    return reader.read();
}

static QImage shrunk(const QImage& image, QSize within)
{
    const bool fits =
        within.isEmpty() || (image.width() <= within.width() && image.height() <= within.height());
    return fits || image.isNull()
               ? image
               : image.scaled(within, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage readDocumentPicture(const QString& file, QSize within,
                           const std::function<bool()>& isStopped)
{
    QImageReader::setAllocationLimit(kAllocationLimit);
    StoppableFile device(file, isStopped);
    if (!isRegularFile(file) || !device.open(QIODevice::ReadOnly)) {
        return {};
    }
    QImage image = readByToolkit(device, within);
    if (image.isNull() && !isStopped()) {
        image = readMetafileOf(file);
    }
    return isStopped() ? QImage() : shrunk(image, within);
}

} // namespace orvanta
