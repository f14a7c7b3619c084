#include "companions/exchange/source_file.h"

#include <QFile>
#include <QFileInfo>

namespace orvanta {

std::optional<SourceBytes> sourceBytes(const QString& path, qint64 most)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) { // no pipe, no device
        return std::nullopt;
    }
    SourceBytes source = {.bytes = file.read(most), .isWhole = true};
    source.isWhole = file.atEnd();
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    return source;
}

} // namespace orvanta
