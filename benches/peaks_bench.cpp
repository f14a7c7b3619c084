// How fast the waveform of a clip is found, against the time that it plays.
//
//   bench_peaks [FILE...]   without files: half an hour of stereo, made by ffmpeg
#include "platform/media/sound_peaks.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kLeastRatio = 100;
constexpr int kMadeSeconds = 1800;

static QStringList madeClips(const QString& folder)
{
    QStringList clips;
    for (const QString& name : {u"aac.mp4"_s, u"mp3.mp3"_s, u"opus.opus"_s}) {
        const QString clip = folder + u'/' + name;
        const int result = QProcess::execute(
            u"ffmpeg"_s, {u"-nostdin"_s, u"-loglevel"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                          u"anoisesrc=color=pink:sample_rate=48000:seed=7"_s, u"-ac"_s, u"2"_s,
                          u"-b:a"_s, u"128k"_s, u"-t"_s, QString::number(kMadeSeconds), clip});
        clips += result == 0 ? QStringList{clip} : QStringList{};
    }
    return clips;
}

/// Real time over the time it takes. The cache is a new one: nothing is known before.
static double measuredRatio(const QString& clip, double& took)
{
    const QTemporaryDir cache;
    SoundPeaks sound(cache.path());
    QElapsedTimer clock;
    clock.start();
    sound.read(clip);
    while (sound.isReading()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    took = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    return static_cast<double>(sound.peaks().size()) / kPeaksPerSecond / took;
}

static bool reportClip(const QString& clip)
{
    double took = 0;
    const double ratio = measuredRatio(clip, took);
    const bool holds = ratio >= kLeastRatio;
    std::printf("%-40s %8.0f x real time (%.2f s; bound %g) %s\n", qPrintable(clip), ratio, took,
                kLeastRatio, holds ? "ok" : "TOO SLOW");
    return holds;
}

} // namespace orvanta

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QStringList given = QCoreApplication::arguments().mid(1);
    const QStringList clips = given.isEmpty() ? orvanta::madeClips(folder.path()) : given;
    bool holds = !clips.isEmpty();
    for (const QString& clip : clips) {
        holds = orvanta::reportClip(clip) && holds;
    }
    return holds ? 0 : 1;
}
