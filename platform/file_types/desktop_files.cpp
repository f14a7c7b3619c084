#include "platform/file_types/desktop_files.h"

#include "core/log.h"
#include "core/sibling_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace orvanta {

std::optional<QByteArray> readWhole(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists()) {
        return QByteArray();
    }
    QFile source(file);
    // Only regular files: a pipe would never come to its end.
    if (!info.isFile() || !source.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray content = source.readAll();
    return source.error() == QFile::NoError ? std::optional(std::move(content)) : std::nullopt;
}

QByteArray contentOf(const QString& file)
{
    return readWhole(file).value_or(QByteArray());
}

static bool isThere(const QString& file, const QByteArray& content, FileMode mode)
{
    const QFileInfo info(file);
    return info.isFile() && info.size() == content.size() &&
           (mode == FileMode::Plain || info.isExecutable()) && contentOf(file) == content;
}

static bool fails(const QString& file)
{
    qCInfo(logDesktop, "%ls cannot be written: %s", qUtf16Printable(file), std::strerror(errno));
    return false;
}

static bool writeSibling(SiblingFile& sibling, const QByteArray& path, const QByteArray& content,
                         FileMode mode)
{
    constexpr mode_t kExecutableMode = 0755;
    struct stat earlier = {};
    const bool exists = ::stat(path.constData(), &earlier) == 0;
    if (exists) {
        sibling.takeOwnership(earlier);
    }
    if (!sibling.writeAt(0, content) || !sibling.replaceTarget()) {
        sibling.remove();
        return false;
    }
    return mode == FileMode::Plain || ::chmod(path.constData(), kExecutableMode) == 0;
}

bool replaceFile(const QString& file, const QByteArray& content, FileMode mode)
{
    if (isThere(file, content, mode)) {
        return true;
    }
    QDir().mkpath(QFileInfo(file).path());
    const QByteArray path = realPath(QFile::encodeName(file));
    std::optional<SiblingFile> sibling = SiblingFile::create(path);
    return (sibling && writeSibling(*sibling, path, content, mode)) || fails(file);
}

bool removeFile(const QString& file)
{
    const bool isGone = ::unlink(QFile::encodeName(file).constData()) == 0 || errno == ENOENT;
    return isGone || fails(file);
}

} // namespace orvanta
