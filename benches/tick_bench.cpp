// CPU of a quiet tick, and the time in which the largest packet is opened.
#include "core/ini.h"
#include "core/packet_file.h"
#include "model/loaders.h"
#include "model/tree_lines.h"
#include "playback/playback_engine.h"
#include "tests/support/plain_playback_view.h"
#include "tests/support/plain_video_window.h"
#include "tests/support/scripted_media_control.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kTicks = 5000;
constexpr int kEntries = 32767;

constexpr double kMostTickMicroseconds = 50;
constexpr double kMostLoadSeconds = 0.5;

static double cpuMicroseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

static Module1 moduleIn(const QString& folder)
{
    Module1 module;
    module.ApplicationFolder = folder;
    module.IniPath = folder + u"/orvanta.ini"_s;
    WriteIni(u"ftl"_s, u"num"_s, u"0"_s, module.IniPath);
    WriteIni(u"options"_s, u"si"_s, u"1"_s, module.IniPath);
    return module;
}

/// Microseconds of CPU of one tick while a clip plays and nobody asks for anything.
static double quietTick(const QString& folder)
{
    Module1 module = moduleIn(folder);
    ScriptedMediaControl control;
    test::PlainVideoWindow video(control);
    test::PlainPlaybackView view(module);
    PlaybackEngine engine(module, control, video);
    engine.attachView(view);
    OpenFiles(module.playlist, {module.IniPath});
    engine.playlistReplaced();
    engine.ListClick(1, 1);
    while (control.CurrentState() != MediaControl::Running) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    double spent = 0;
    for (int i = 0; i < kTicks; ++i) {
        control.playTo(10.0 * i / kTicks);
        const double before = cpuMicroseconds();
        engine.tick();
        spent += cpuMicroseconds() - before;
    }
    return spent / kTicks;
}

static QString largestPacket(const QString& folder)
{
    QStringList entries;
    entries.reserve(kEntries);
    for (int i = 1; i <= kEntries; ++i) {
        entries.append(u"/media/clips/clip %1.avi{}Clip number %1"_s.arg(i));
    }
    QString path = folder + u"/largest.vxl"_s;
    writeClipListPacket(path, entries);
    return path;
}

/// Seconds until the tree's lines are there.
static double loadLargest(const QString& folder)
{
    const QString path = largestPacket(folder);
    PlaylistState playlist;
    QElapsedTimer timer;
    timer.start();
    OpenPacket(playlist, path);
    const std::vector<TreeLine> lines = treeLines(playlist);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    return lines.size() == kEntries + 2 ? seconds : -1;
}

} // namespace orvanta

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const double tick = orvanta::quietTick(folder.path());
    const double load = orvanta::loadLargest(folder.path());
    std::printf("quiet tick: %.1f us of CPU (%.2f of the %.0f us allowed)\n", tick,
                tick / orvanta::kMostTickMicroseconds, orvanta::kMostTickMicroseconds);
    std::printf("open %d clips and their tree: %.3f s (%.2f of the %.1f s allowed)\n",
                orvanta::kEntries, load, load / orvanta::kMostLoadSeconds,
                orvanta::kMostLoadSeconds);
    const bool held =
        tick < orvanta::kMostTickMicroseconds && load >= 0 && load < orvanta::kMostLoadSeconds;
    return held ? 0 : 1;
}
