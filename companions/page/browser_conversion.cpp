#include "companions/page/browser_conversion.h"

#include "platform/media/container_formats.h"

#include <QFile>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kProgram = u"ffmpeg"_s;

constexpr int kLookMs = 100; // how often somebody who wants it to stop is heard

BrowserEncoders browserEncoders()
{
    QProcess process;
    process.start(kProgram, {u"-hide_banner"_s, u"-encoders"_s});
    if (!process.waitForFinished()) {
        return {};
    }
    const QString all = QString::fromUtf8(process.readAllStandardOutput());
    return {.isThere = true,
            .h264 = all.contains(u" libx264 "),
            .vp8 = all.contains(u" libvpx "),
            .opus = all.contains(u" libopus ")};
}

static bool isMp4(const BrowserClip& clip, const BrowserEncoders& encoders)
{
    if (clip.pictureGoesInto != BrowserContainer::None) {
        return clip.pictureGoesInto == BrowserContainer::Mp4;
    }
    // Sound alone goes into MP4, too: there is always an encoder of AAC.
    return clip.hasPicture() ? encoders.h264 : !clip.soundGoesIntoWebm;
}

/// Pixels are made square and their number even; quick rather than small.
static QStringList pictureArguments(const BrowserClip& clip, bool mp4)
{
    if (!clip.hasPicture()) {
        return {u"-vn"_s};
    }
    const QStringList which = {u"-map"_s, u"0:%1"_s.arg(clip.picture)};
    if (clip.pictureGoesInto != BrowserContainer::None) {
        return which + QStringList{u"-c:v"_s, u"copy"_s};
    }
    const QStringList even = {
        u"-vf"_s, u"scale=trunc(iw*max(sar\\,1/8)/2)*2:trunc(ih/2)*2,setsar=1,format=yuv420p"_s};
    const QStringList codec =
        mp4 ? QStringList{u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"veryfast"_s, u"-crf"_s, u"22"_s}
            : QStringList{u"-c:v"_s, u"libvpx"_s, u"-deadline"_s, u"realtime"_s, u"-cpu-used"_s,
                          u"6"_s,    u"-crf"_s,   u"12"_s,        u"-b:v"_s,     u"4M"_s};
    // Pictures to which a jump leads stand close together: brakes are reached at once.
    return which + even + codec + QStringList{u"-g"_s, u"50"_s};
}

static QStringList soundArguments(const BrowserClip& clip, bool mp4)
{
    if (clip.sound < 0) {
        return {u"-an"_s};
    }
    const QStringList which = {u"-map"_s, u"0:%1"_s.arg(clip.sound)};
    if (mp4 ? clip.soundGoesIntoMp4 : clip.soundGoesIntoWebm) {
        return which + QStringList{u"-c:a"_s, u"copy"_s};
    }
    return which + QStringList{u"-c:a"_s, mp4 ? u"aac"_s : u"libopus"_s, u"-ac"_s, u"2"_s,
                               u"-b:a"_s, mp4 ? u"160k"_s : u"128k"_s};
}

BrowserRecipe browserRecipe(const BrowserClip& clip, const BrowserEncoders& encoders)
{
    const bool mp4 = isMp4(clip, encoders);
    const QStringList arguments =
        pictureArguments(clip, mp4) + soundArguments(clip, mp4) +
        QStringList{u"-sn"_s, u"-dn"_s, u"-map_metadata"_s, u"-1"_s, u"-map_chapters"_s, u"-1"_s};
    const QString kind = clip.hasPicture() ? u"video/"_s : u"audio/"_s;
    return mp4 ? BrowserRecipe{u"mp4"_s, kind + u"mp4"_s,
                               arguments +
                                   QStringList{u"-movflags"_s, u"+faststart"_s, u"-f"_s, u"mp4"_s}}
               : BrowserRecipe{u"webm"_s, kind + u"webm"_s,
                               arguments + QStringList{u"-f"_s, u"webm"_s}};
}

/// The input is a file, whatever its name looks like, and leads to no other.
static QStringList inputArguments(const QString& source)
{
    return {u"-nostdin"_s,
            u"-hide_banner"_s,
            u"-loglevel"_s,
            u"error"_s,
            u"-progress"_s,
            u"pipe:1"_s,
            u"-y"_s,
            u"-protocol_whitelist"_s,
            u"file,pipe"_s,
            u"-format_whitelist"_s,
            QString::fromLatin1(kContainerFormats),
            u"-fflags"_s,
            u"+genpts"_s,
            u"-i"_s,
            u"file:"_s + source};
}

/// "out_time_us=1500000": microseconds of the clip that are done.
static void tellProgress(QProcess& process, double seconds, const ConversionWatch& watch)
{
    while (process.canReadLine()) {
        const QByteArray line = process.readLine().trimmed();
        if (line.startsWith("out_time_us=") && seconds > 0) {
            const double done = line.mid(12).toDouble() / 1'000'000;
            watch.reached(std::clamp(done / seconds, 0.0, 1.0));
        }
    }
}

/// False when somebody has stopped it.
static bool runToEnd(QProcess& process, double seconds, const ConversionWatch& watch)
{
    while (process.state() != QProcess::NotRunning) {
        if (watch.isStopped()) {
            process.kill();
            process.waitForFinished();
            return false;
        }
        process.waitForReadyRead(kLookMs);
        tellProgress(process, seconds, watch);
    }
    return true;
}

static QString failureOf(QProcess& process)
{
    if (process.error() == QProcess::FailedToStart) {
        return process.errorString();
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return {};
    }
    const QString words = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return words.isEmpty() ? u"ffmpeg failed"_s : words.section(u'\n', -1);
}

QString convertForBrowsers(const QString& source, const BrowserClip& clip,
                           const BrowserRecipe& recipe, const QString& target,
                           const ConversionWatch& watch)
{
    const QString part = target + u".part"_s;
    QProcess process;
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(kProgram,
                  inputArguments(source) + recipe.arguments + QStringList{u"file:"_s + part});
    const bool wasStopped = !runToEnd(process, clip.seconds, watch);
    QString failure = wasStopped ? u"stopped"_s : failureOf(process);
    if (failure.isEmpty() && !QFile::rename(part, target)) {
        failure = u"the file exists"_s;
    }
    if (!failure.isEmpty()) {
        QFile::remove(part);
    }
    return failure;
}

} // namespace orvanta
