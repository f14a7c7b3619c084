#include "companions/exchange/chapter_copy.h"

#include "companions/exchange/end_mark.h"
#include "companions/exchange/ffmetadata.h"
#include "platform/media/clip_facts.h"
#include "platform/media/container_formats.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kWholePercent = 100;

ChapterCopy::~ChapterCopy()
{
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool ChapterCopy::prepare(const LessonPacket& packet)
{
    const QFileInfo target(m_target);
    m_folder = std::make_unique<QTemporaryDir>(target.absolutePath() + u"/.orvanta-XXXXXX"_s);
    if (!m_folder->isValid()) {
        return false;
    }
    m_copy = m_folder->filePath(u"copy."_s + target.suffix());
    QFile metadata(m_folder->filePath(u"chapters"_s));
    const QByteArray text = ffMetadataText(packet).toUtf8();
    return metadata.open(QIODevice::WriteOnly) && metadata.write(text) == text.size();
}

/// "file:" in front: a name is never an option or an address.
QStringList ChapterCopy::arguments(const QString& clip) const
{
    return {u"-nostdin"_s,
            u"-hide_banner"_s,
            u"-v"_s,
            u"error"_s,
            u"-progress"_s,
            u"pipe:1"_s,
            u"-protocol_whitelist"_s,
            u"file"_s,
            u"-format_whitelist"_s,
            QString::fromLatin1(kContainerFormats),
            u"-i"_s,
            u"file:"_s + clip,
            u"-protocol_whitelist"_s,
            u"file"_s,
            u"-f"_s,
            u"ffmetadata"_s,
            u"-i"_s,
            u"file:"_s + m_folder->filePath(u"chapters"_s),
            u"-map"_s,
            u"0"_s,
            u"-dn"_s, // chapters of old are such a stream in some containers
            u"-ignore_unknown"_s,
            u"-map_metadata"_s,
            u"0"_s,
            u"-map_chapters"_s,
            u"1"_s,
            u"-c"_s,
            u"copy"_s,
            u"file:"_s + m_copy};
}

void ChapterCopy::start(const LessonPacket& packet, const QString& target)
{
    m_target = target;
    m_chapters = spansOf(packet).size();
    m_clipSeconds = readClipFacts(packet.markedClip).seconds;
    const QString program = QStandardPaths::findExecutable(u"ffmpeg"_s);
    if (program.isEmpty()) {
        return end(u"noFfmpeg");
    }
    if (!prepare(packet)) {
        return end(u"unwritable", m_target);
    }
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &ChapterCopy::readProgress);
    connect(&m_process, &QProcess::finished, this, &ChapterCopy::takeResult);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            end(u"noFfmpeg");
        }
    });
    m_process.start(program, arguments(packet.markedClip));
}

void ChapterCopy::cancel()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill(); // what it has written so far goes with its folder
    }
}

void ChapterCopy::readProgress()
{
    constexpr double kMicrosecond = 1e-6;
    while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine().trimmed();
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

void ChapterCopy::takeResult(int exitCode, QProcess::ExitStatus status)
{
    const QString said = QString::fromUtf8(m_process.readAllStandardError()).trimmed();
    if (status != QProcess::NormalExit || exitCode != 0) {
        return end(status == QProcess::NormalExit ? u"copyFailed" : u"cancelled",
                   said.section(u'\n', -1));
    }
    // Some containers have no place for chapters, and nobody says so.
    if (readClipFacts(m_copy).chapters.size() < m_chapters) {
        return end(u"noChaptersHere", QFileInfo(m_target).suffix());
    }
    const bool isThere =
        syncFile(m_copy) && std::rename(QFile::encodeName(m_copy).constData(),
                                        QFile::encodeName(m_target).constData()) == 0;
    end(isThere ? nullptr : u"unwritable", isThere ? QString() : m_target);
}

void ChapterCopy::end(const char16_t* failure, const QString& detail)
{
    m_process.disconnect(this);
    m_folder.reset();
    Q_EMIT finished(failure, detail);
}

} // namespace orvanta
