#include "platform/media/peak_cache.h"

#include "core/log.h"
#include "core/sibling_file.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>
#include <fcntl.h>

namespace orvanta {

using namespace Qt::StringLiterals;

// In a file: this, the clip's identity, the pairs, and a sum of all that.
constexpr char kMagic[] = "OrvPeaks";
constexpr quint32 kVersion = 1; // another one where peaks are found otherwise
constexpr auto kSum = QCryptographicHash::Sha1;
constexpr qsizetype kSumBytes = 20;

QString PeakCache::usualFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           u"/orvanta/peaks"_s;
}

static QByteArray headOf(const struct stat& clip)
{
    QByteArray head = kMagic;
    QDataStream stream(&head, QIODevice::Append);
    stream << kVersion << quint64{clip.st_dev} << quint64{clip.st_ino} << qint64{clip.st_size}
           << qint64{clip.st_mtim.tv_sec} << qint64{clip.st_mtim.tv_nsec};
    return head;
}

QString PeakCache::fileOf(const struct stat& clip) const
{
    const QByteArray name = QCryptographicHash::hash(headOf(clip), kSum).toHex();
    return m_folder + u'/' + QString::fromLatin1(name) + u".peaks"_s;
}

static QByteArray contentOf(const struct stat& clip, const Peaks& peaks)
{
    QByteArray content = headOf(clip);
    content.reserve(content.size() + static_cast<qsizetype>(peaks.size()) * 2 + kSumBytes);
    for (const PeakPair& pair : peaks) {
        content.append(static_cast<char>(pair.low));
        content.append(static_cast<char>(pair.high));
    }
    return content + QCryptographicHash::hash(content, kSum);
}

static std::optional<Peaks> peaksIn(const QByteArray& content, const QByteArray& head)
{
    const qsizetype pairs = (content.size() - head.size() - kSumBytes) / 2;
    const QByteArray body = content.chopped(std::min(kSumBytes, content.size()));
    if (pairs < 0 || body.size() != head.size() + pairs * 2 || !body.startsWith(head) ||
        QCryptographicHash::hash(body, kSum) != content.last(kSumBytes)) {
        return std::nullopt;
    }
    Peaks peaks(static_cast<std::size_t>(pairs));
    const char* next = body.constData() + head.size();
    for (PeakPair& pair : peaks) {
        pair.low = static_cast<qint8>(*next++);
        pair.high = static_cast<qint8>(*next++);
    }
    return peaks;
}

/// Empty when there is none that could be a file of the cache.
static QByteArray cachedBytes(const QString& file)
{
    constexpr qint64 kLargest = kMostPeaks * 2 + 1024;
    const Descriptor cached = Descriptor::open(QFile::encodeName(file), O_RDONLY | O_NOFOLLOW);
    const std::optional<struct stat> status = cached.status();
    if (!status || !S_ISREG(status->st_mode) || status->st_size > kLargest) {
        return {};
    }
    futimens(cached.number(), nullptr); // used now
    return cached.readAll().value_or(QByteArray());
}

std::optional<Peaks> PeakCache::find(const struct stat& clip) const
{
    const QByteArray content = cachedBytes(fileOf(clip));
    return content.isEmpty() ? std::nullopt : peaksIn(content, headOf(clip));
}

bool PeakCache::write(const QString& file, const QByteArray& content) const
{
    if (!QDir().mkpath(m_folder)) {
        return false;
    }
    std::optional<SiblingFile> sibling = SiblingFile::create(QFile::encodeName(file));
    if (!sibling) {
        return false;
    }
    const bool done = sibling->writeAt(0, content) && sibling->replaceTarget();
    if (!done) {
        sibling->remove();
    }
    return done;
}

void PeakCache::keep(const struct stat& clip, const Peaks& peaks) const
{
    errno = 0;
    if (write(fileOf(clip), contentOf(clip, peaks))) {
        makeRoom();
    } else {
        qCInfo(logErrors, "a waveform cannot be kept in %ls: %s", qUtf16Printable(m_folder),
               std::strerror(errno));
    }
}

// The siblings that killed writers left count, too.
void PeakCache::makeRoom() const
{
    qint64 all = 0;
    const QDir folder(m_folder);
    for (const QFileInfo& file :
         folder.entryInfoList({u"*.peaks"_s, u".*.peaks.new"_s},
                              QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Time)) {
        all += file.size();
        if (all > m_most) {
            QFile::remove(file.filePath());
        }
    }
}

} // namespace orvanta
