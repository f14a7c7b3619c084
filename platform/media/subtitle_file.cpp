#include "platform/media/subtitle_file.h"

#include "core/log.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kLookedAt = 1024; // bytes of a file's beginning
constexpr char kUtf8Mark[] = "\xef\xbb\xbf";

static bool fits(const std::optional<struct stat>& status)
{
    return status && S_ISREG(status->st_mode) && status->st_size <= kMostSubtitleBytes;
}

bool isSubtitleFile(const QString& path)
{
    return path.startsWith(u'/') && fits(statusOf(QFile::encodeName(path)));
}

bool looksLikeSubtitles(const QByteArray& text)
{
    static const QRegularExpression beginnings(
        uR"(^\s*(WEBVTT\b|\[Script Info\]|\d+\s*\n\s*\d+:\d\d:\d\d[,.]\d+\s*-->))"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QByteArray bare = text.startsWith(kUtf8Mark) ? text.mid(sizeof kUtf8Mark - 1) : text;
    // By single bytes: what the file's letters are does not matter here.
    return beginnings.match(QString::fromLatin1(bare.left(kLookedAt))).hasMatch();
}

static QByteArray inUtf8(const QByteArray& bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding || *encoding == QStringConverter::Utf8) {
        return bytes;
    }
    const QString text = QStringDecoder(*encoding)(bytes);
    return text.toUtf8();
}

/// The library's reader of WebVTT gives up at a style sheet, which it would not use anyway.
static QByteArray withoutStyles(const QByteArray& text)
{
    static const QRegularExpression styles(uR"(^(STYLE|REGION)[ \t]*\r?\n([^\r\n]+\r?\n)*)"_s,
                                           QRegularExpression::MultilineOption);
    return text.contains("WEBVTT") ? QString::fromLatin1(text).remove(styles).toLatin1() : text;
}

/// The status is that of the file which is read, whatever its name means by then.
static std::optional<QByteArray> contentsOf(const QString& path)
{
    const Descriptor file = Descriptor::open(QFile::encodeName(path), O_RDONLY);
    return file.isOpen() && fits(file.status()) ? file.readAll() : std::nullopt;
}

static Descriptor sealedCopy(const QByteArray& bytes)
{
    const int number = memfd_create("subtitles", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    Descriptor copy = Descriptor::of(number);
    constexpr int kSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL;
    const bool done =
        copy.isOpen() && copy.writeAt(0, bytes) && fcntl(number, F_ADD_SEALS, kSeals) == 0;
    return done ? std::move(copy) : Descriptor();
}

Descriptor copyOfSubtitles(const QString& path)
{
    // Asked before: the opening alone might set a device in motion.
    const std::optional<QByteArray> bytes = isSubtitleFile(path) ? contentsOf(path) : std::nullopt;
    const QByteArray text = bytes ? withoutStyles(inUtf8(*bytes)) : QByteArray();
    Descriptor copy = looksLikeSubtitles(text) && text.size() <= kMostSubtitleBytes
                          ? sealedCopy(text)
                          : Descriptor();
    if (!copy.isOpen()) {
        qCInfo(logErrors, "no subtitles in use in %ls", qUtf16Printable(path));
    }
    return copy;
}

} // namespace orvanta
