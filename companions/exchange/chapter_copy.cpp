#include "companions/exchange/chapter_copy.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/ffmetadata.h"
#include "platform/media/container_formats.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kWholePercent = 100;

ChapterCopy::~ChapterCopy()
{
    if (m_process) {
        m_process->disconnect(this);
        m_process->kill();
        m_process->waitForFinished();
    }
}

LessonPacket ChapterCopy::shiftedPacket() const
{
    LessonPacket packet = m_packet;
    for (LessonMark& mark : packet.marks) {
        mark.seconds += m_shift;
    }
    return packet;
}

bool ChapterCopy::prepare()
{
    const QFileInfo target(m_target);
    m_folder = std::make_unique<QTemporaryDir>(target.absolutePath() + u"/.orvanta-XXXXXX"_s);
    if (!m_folder->isValid()) {
        return false;
    }
    m_copy = m_folder->filePath(u"copy."_s + target.suffix());
    QFile metadata(m_folder->filePath(u"chapters"_s));
    const QByteArray text = ffMetadataText(shiftedPacket()).toUtf8();
    return metadata.open(QIODevice::WriteOnly) && metadata.write(text) == text.size();
}

/// Those that keep chapters as comments, in which the program itself rounds times to seconds.
static bool hasCommentsForChapters(const QString& file)
{
    static const QStringList kEndings = {u"ogg"_s, u"oga"_s,  u"ogv"_s,
                                         u"spx"_s, u"opus"_s, u"flac"_s};
    return kEndings.contains(QFileInfo(file).suffix().toLower());
}

static QStringList chaptersAsComments(const std::vector<MarkSpan>& chapters)
{
    // A name has to stand behind its time; who sets a tag that is there already moves the last one
    // into its place.
    QStringList words = {u"-map_chapters"_s, u"-1"_s, u"-metadata"_s, u"encoder="_s};
    int number = 0;
    for (const MarkSpan& chapter : chapters) {
        const QString name = u"CHAPTER%1"_s.arg(number++, 3, 10, QLatin1Char('0'));
        words << u"-metadata"_s << name + u'=' + clockWithMilliseconds(chapter.start)
              << u"-metadata"_s << name + u"NAME="_s + chapter.text;
    }
    return words;
}

/// "file:" in front: a name is never an option or an address.
QStringList ChapterCopy::arguments() const
{
    QStringList words = {u"-nostdin -hide_banner -v error -progress pipe:1"_s.split(u' ')};
    const QStringList input = {u"-protocol_whitelist"_s, u"file"_s};
    words += input;
    words << u"-format_whitelist"_s << QString::fromLatin1(kContainerFormats) << u"-i"_s
          << u"file:"_s + m_packet.markedClip;
    words += input;
    words << u"-f"_s << u"ffmetadata"_s << u"-i"_s
          << u"file:"_s + m_folder->filePath(u"chapters"_s);
    // Without streams of data: in some containers the chapters of old are one.
    words += u"-map 0 -dn -ignore_unknown -map_metadata 0 -c copy"_s.split(u' ');
    words += hasCommentsForChapters(m_target) ? chaptersAsComments(spansOf(shiftedPacket()))
                                              : QStringList{u"-map_chapters"_s, u"1"_s};
    words << u"file:"_s + m_copy;
    return words;
}

void ChapterCopy::start(const LessonPacket& packet, const QString& target)
{
    m_packet = packet;
    m_target = target;
    m_clipSeconds = readClipFacts(packet.markedClip).seconds;
    run();
}

void ChapterCopy::run()
{
    const QString program = QStandardPaths::findExecutable(u"ffmpeg"_s);
    if (program.isEmpty()) {
        return end(u"noFfmpeg");
    }
    if (!prepare()) {
        return end(u"unwritable", m_target);
    }
    m_process = std::make_unique<QProcess>();
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ChapterCopy::readProgress);
    connect(m_process.get(), &QProcess::finished, this, &ChapterCopy::takeResult,
            Qt::QueuedConnection); // which may begin the next process
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            end(u"noFfmpeg");
        }
    });
    m_process->start(program, arguments());
}

void ChapterCopy::cancel()
{
    if (m_process) {
        m_process->kill(); // what it has written so far goes with its folder
    }
}

void ChapterCopy::readProgress()
{
    constexpr double kMicrosecond = 1e-6;
    while (m_process->canReadLine()) {
        const QByteArray line = m_process->readLine().trimmed();
        if (line.startsWith("out_time_us=") && m_clipSeconds > 0) {
            const double seconds = line.mid(line.indexOf('=') + 1).toDouble() * kMicrosecond;
            const double part = std::clamp(seconds / m_clipSeconds, 0.0, 1.0);
            Q_EMIT progressed(static_cast<int>(part * kWholePercent));
        }
    }
}

static bool syncFile(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    const bool isSynced = file >= 0 && ::fsync(file) == 0;
    if (file >= 0) {
        ::close(file);
    }
    return isSynced;
}

bool ChapterCopy::holdsChapters(const ClipFacts& copy) const
{
    constexpr double kHundredth = 0.01;
    const std::vector<MarkSpan> wanted = spansOf(m_packet);
    return std::equal(copy.chapters.begin(), copy.chapters.end(), wanted.begin(), wanted.end(),
                      [](const ClipChapter& chapter, const MarkSpan& span) {
                          return std::abs(chapter.start - span.start) < kHundredth;
                      });
}

/// Some containers begin a little behind 0 by their own clock, and chapters go by that. How much it
/// is shows only in the copy.
bool ChapterCopy::shiftsFor(const ClipFacts& copy)
{
    constexpr double kThousandth = 0.001;
    const bool isNews = m_shift == 0 && copy.start > kThousandth && !copy.chapters.empty();
    m_shift = isNews ? copy.start : m_shift;
    return isNews;
}

void ChapterCopy::takeResult(int exitCode, QProcess::ExitStatus status)
{
    const QString said = QString::fromUtf8(m_process->readAllStandardError()).trimmed();
    if (status != QProcess::NormalExit || exitCode != 0) {
        return end(status == QProcess::NormalExit ? u"copyFailed" : u"cancelled",
                   said.section(u'\n', -1));
    }
    const ClipFacts copy = readClipFacts(m_copy);
    if (shiftsFor(copy)) {
        return run();
    }
    // Some containers have no place for chapters, and nobody says so.
    if (!holdsChapters(copy)) {
        return end(u"noChaptersHere", QFileInfo(m_target).suffix());
    }
    const bool isThere =
        syncFile(m_copy) && std::rename(QFile::encodeName(m_copy).constData(),
                                        QFile::encodeName(m_target).constData()) == 0;
    end(isThere ? nullptr : u"unwritable", isThere ? QString() : m_target);
}

void ChapterCopy::end(const char16_t* failure, const QString& detail)
{
    if (m_process) {
        m_process->disconnect(this);
    }
    m_folder.reset();
    Q_EMIT finished(failure, detail);
}

} // namespace orvanta
