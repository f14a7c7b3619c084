#include "model/dropped_files.h"

#include "core/log.h"

#include <QList>
#include <QStringDecoder>
#include <QSysInfo>
#include <QUrl>

#include <optional>

namespace orvanta {

using namespace Qt::StringLiterals;

static void refuse(const QByteArray& line, const char* reason)
{
    qCWarning(logPlaylist, "dropped %s: %s", line.constData(), reason);
}

static bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError() && !text.contains(QChar::Null);
}

static bool isThisMachine(const QString& host)
{
    return host.isEmpty() || host == u"localhost" ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

static std::optional<QString> fileOfLine(const QByteArray& line)
{
    if (!isUtf8(QByteArray::fromPercentEncoding(line))) {
        refuse(line, "its name is no text");
        return std::nullopt;
    }
    const QString path = fileOfAddress(QUrl::fromEncoded(line));
    if (path.isEmpty()) {
        refuse(line, "no file of this machine");
        return std::nullopt;
    }
    return path;
}

QString fileOfAddress(const QUrl& address)
{
    const QString path = address.path(QUrl::FullyDecoded);
    const bool isHere = address.isLocalFile() && isThisMachine(address.host());
    return isHere && path.startsWith(u'/') ? path : QString();
}

QStringList filesOfUriList(const QByteArray& uriList)
{
    QStringList files;
    for (QByteArray line : uriList.split('\n')) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith('#')) {
            continue; // the format's own comments
        }
        if (const auto file = fileOfLine(line)) {
            files += *file;
        }
    }
    return files;
}

} // namespace orvanta
