#include "platform/file_types/type_icons.h"

#include "core/log.h"
#include "core/paths.h"
#include "platform/file_types/desktop_files.h"
#include "platform/file_types/desktop_folders.h"
#include "platform/file_types/document_picture.h"
#include "platform/process/application_folder.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kMostEntriesOfIcon = 256;
constexpr std::array kSizes = {16, 22, 24, 32, 48, 64, 128, 256};

QString standardIcon(const QString& applicationFolder, const QString& extension)
{
    return installedFile(applicationFolder, u"\\icons\\"_s + extension + u".ico"_s);
}

QString currentIcon(const QString& applicationFolder, const QString& extension)
{
    const QString current = installedFile(applicationFolder, u'\\' + extension + u".ico"_s);
    return QFileInfo::exists(current) ? current : standardIcon(applicationFolder, extension);
}

QString themeIconName(const QString& mimeType)
{
    return QString(mimeType).replace(u'/', u'-');
}

/// Which picture of the file is the smallest that is large enough; else the largest. The sizes
/// stand in the file's head: nothing is decoded for this.
static int bestPicture(QImageReader& reader, int side)
{
    int best = 0;
    int bestWidth = 0;
    const int count = std::min(reader.imageCount(), kMostEntriesOfIcon);
    for (int i = 0; i < count && reader.jumpToImage(i); ++i) {
        const int width = reader.size().width();
        const bool isBetter =
            bestWidth < side ? width > bestWidth : width >= side && width < bestWidth;
        if (isBetter) {
            best = i;
            bestWidth = width;
        }
    }
    return best;
}

QImage readIcon(const QString& icoFile, int side)
{
    if (!QFileInfo(icoFile).isFile()) {
        return {};
    }
    QImageReader reader(icoFile);
    if (!takesKnownFormat(reader)) { // other pictures bear this ending too
        return {};
    }
    reader.jumpToImage(bestPicture(reader, side));
    QImage picture = reader.read();
    if (picture.width() > side || picture.height() > side) {
        picture = picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    return picture;
}

QString userIconTheme()
{
    return DesktopFolders::dataHome() + u"/icons/hicolor"_s;
}

static QString themeFile(const QString& theme, int size, const QString& name)
{
    return theme + u"/%1x%1/mimetypes/"_s.arg(size) + name + u".png"_s;
}

/// What a picture of the theme was made from; says too that this program made it.
static QString sourceText(const QString& icoFile)
{
    const QFileInfo info(icoFile);
    return u"Orvanta %1 %2 %3"_s.arg(info.absoluteFilePath())
        .arg(info.size())
        .arg(info.lastModified().toMSecsSinceEpoch());
}

static QString sourceOf(const QString& png)
{
    return QImageReader(png, "png").text(u"Source"_s);
}

static bool isForeign(const QString& png)
{
    return QFileInfo::exists(png) && !sourceOf(png).startsWith(u"Orvanta ");
}

static QList<QImage> framesOf(const QString& icoFile)
{
    QImageReader reader(icoFile);
    QList<QImage> frames;
    if (!takesKnownFormat(reader)) {
        return frames;
    }
    const int count = std::clamp(reader.imageCount(), 1, kMostEntriesOfIcon);
    for (int i = 0; i < count; ++i) {
        QImage frame = reader.read();
        if (!frame.isNull()) {
            frames.append(std::move(frame));
        }
        reader.jumpToNextImage();
    }
    std::sort(frames.begin(), frames.end(),
              [](const QImage& a, const QImage& b) { return a.width() < b.width(); });
    return frames;
}

/// Scaled down from the next larger one; small icons are drawn for their size.
static QByteArray pngOf(const QList<QImage>& frames, int size, const QString& source)
{
    const auto fits = std::find_if(frames.cbegin(), frames.cend(),
                                   [size](const QImage& frame) { return frame.width() >= size; });
    QImage image = fits != frames.cend() ? *fits : frames.constLast();
    if (image.width() != size) {
        image = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    image.setText(u"Source"_s, source);
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

/// The theme's readers look at the age of its folder.
static void touch(const QString& theme)
{
    ::utimensat(AT_FDCWD, QFile::encodeName(theme).constData(), nullptr, 0);
}

static void removeSize(const QString& theme, int size, const QString& name)
{
    const QString png = themeFile(theme, size, name);
    if (QFileInfo::exists(png) && !isForeign(png)) {
        removeFile(png);
    }
}

static void writeSize(const QString& theme, int size, const QStringList& names,
                      const QByteArray& png)
{
    for (const QString& name : names) {
        if (!isForeign(themeFile(theme, size, name))) {
            replaceFile(themeFile(theme, size, name), png);
        }
    }
}

void writeThemeIcons(const QString& theme, const QString& icoFile, const QStringList& names)
{
    const QString source = sourceText(icoFile);
    const bool isThere = std::all_of(names.cbegin(), names.cend(), [&](const QString& name) {
        return sourceOf(themeFile(theme, kSizes.front(), name)) == source;
    });
    if (isThere) {
        return;
    }
    const QList<QImage> frames = QFileInfo(icoFile).isFile() ? framesOf(icoFile) : QList<QImage>();
    if (frames.isEmpty()) {
        qCInfo(logDesktop, "%ls is no icon that can be read", qUtf16Printable(icoFile));
        return;
    }
    // The smallest size last: it says that the others are there.
    for (auto size = kSizes.rbegin(); size != kSizes.rend(); ++size) {
        if (*size <= frames.constLast().width() || *size == kSizes.front()) {
            writeSize(theme, *size, names, pngOf(frames, *size, source));
        } else {
            std::for_each(names.cbegin(), names.cend(),
                          [&](const QString& name) { removeSize(theme, *size, name); });
        }
    }
    touch(theme);
}

void removeThemeIcons(const QString& theme, const QStringList& names)
{
    for (const QString& name : names) {
        for (const int size : kSizes) {
            removeSize(theme, size, name);
        }
    }
    touch(theme);
}

} // namespace orvanta
