// Start, opening of a very long packet, memory and rest, beside an ordinary player on the same
// display in the same run.

#include "benches/bench_clips.h"
#include "benches/mpv_process.h"
#include "core/ini.h"
#include "tests/e2e/support/accessibility.h"
#include "tests/e2e/support/application.h"
#include "tests/e2e/support/media.h"
#include "tests/e2e/support/packets.h"
#include "tests/e2e/support/screen_eye.h"
#include "tests/e2e/support/wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::bench {

using namespace orvanta::e2e;

constexpr int kStarts = 7;
constexpr int kOpenings = 10;
constexpr int kEntries = 32767;
constexpr int kRestMs = 15000;

struct Opening
{
    double seconds = 0;
    double megabytes = 0; // that the process grew by
};

static double secondsOf(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

static double megabytes(qint64 pid)
{
    return static_cast<double>(memoryKilobytes(pid, "VmRSS")) / 1024;
}

static void say(const char* what, double ours, double theirs, const char* unit, double allowed)
{
    std::printf("%-44s %9.3f  mpv %9.3f %-3s ratio %6.3f (at most %.2f)\n", what, ours, theirs,
                unit, ours / theirs, allowed);
}

static double startOfProgram(const Desktop& desktop)
{
    const Home home;
    Application program(desktop, home);
    QElapsedTimer clock;
    clock.start();
    const bool shown = program.startAndShow();
    return shown ? secondsOf(clock) : -1;
}

static double startOfMpv(const Desktop& desktop)
{
    const MapWatch watch(desktop);
    MpvProcess mpv(desktop);
    QElapsedTimer clock;
    clock.start();
    mpv.start();
    return watch.waitForWindow("mpv") ? secondsOf(clock) : -1;
}

static void measureStart(const Desktop& desktop)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int i = 0; i < kStarts; ++i) { // in turns, so that both meet the same machine
        ours.push_back(startOfProgram(desktop));
        theirs.push_back(startOfMpv(desktop));
    }
    say("start until the window is shown", median(ours), median(theirs), "s", 1.0);
}

constexpr unsigned kPink = 0xff00c0;
constexpr unsigned kGreen = 0x00c040;

static QString pinkClip()
{
    return makeClip(u"bench-pink.mp4"_s, u"color=c=0xff00c0:size=640x360:rate=25"_s, u"20"_s);
}

static QString greenClip()
{
    return makeClip(u"bench-green.mp4"_s, u"color=c=0x00c040:size=640x360:rate=25"_s, u"20"_s);
}

/// Since the clock was started.
static double untilShown(ScreenEye& eye, unsigned colour, const QElapsedTimer& clock)
{
    constexpr double kPatience = 20;
    while (!eye.shows(colour)) {
        if (secondsOf(clock) > kPatience) {
            return -1;
        }
        QThread::usleep(500);
    }
    return secondsOf(clock);
}

struct FirstPictures
{
    double launch = -1;   // of a launch with a clip
    double handOver = -1; // of a second launch, with another clip
};

static FirstPictures firstPicturesOfProgram(const Desktop& desktop, ScreenEye& eye)
{
    const Home home;
    home.setOption(u"as"_s, true);
    Application program(desktop, home);
    QElapsedTimer clock;
    clock.start();
    program.start({pinkClip()});
    FirstPictures times;
    times.launch = untilShown(eye, kPink, clock);
    if (!program.next(u"^orvanta.playback: start"_s)) {
        return times;
    }
    QThread::msleep(500); // the launch's own work is over
    Application later(desktop, home);
    clock.restart();
    later.start({greenClip()});
    times.handOver = untilShown(eye, kGreen, clock);
    return times;
}

static double firstPictureOfMpv(const Desktop& desktop, ScreenEye& eye)
{
    OwnedProcess mpv;
    mpv.setProcessEnvironment(desktop.environment());
    QElapsedTimer clock;
    clock.start();
    mpv.start(u"mpv"_s, {u"--no-config"_s, u"--no-terminal"_s, u"--vo=x11"_s, pinkClip()});
    return untilShown(eye, kPink, clock);
}

static void measureFirstPictures(const Desktop& desktop)
{
    ScreenEye eye(desktop);
    std::vector<double> launches;
    std::vector<double> handOvers;
    std::vector<double> theirs;
    for (int i = 0; i < kStarts; ++i) {
        const FirstPictures ours = firstPicturesOfProgram(desktop, eye);
        launches.push_back(ours.launch);
        handOvers.push_back(ours.handOver);
        theirs.push_back(firstPictureOfMpv(desktop, eye));
    }
    say("launch with a clip until its first picture", median(launches), median(theirs), "s", 1.5);
    say("hand-over of a clip until its first picture", median(handOvers), median(theirs), "s", 1.0);
}

static QString clipPath()
{
    return media(u"tone20.wav"_s);
}

static QString longPacket(const Desktop& desktop)
{
    const QString clip = clipPath();
    QList<ClipLine> clips;
    for (int i = 1; i <= kEntries; ++i) {
        clips.append({clip, u"Clip %1"_s.arg(i)});
    }
    return writeClips(desktop.folder() + u"/long.vxl"_s, clips);
}

static QString longList(const Desktop& desktop)
{
    const QByteArray line = clipPath().toUtf8() + '\n';
    return writeBytes(desktop.folder() + u"/long.m3u"_s, "#EXTM3U\n" + line.repeated(kEntries));
}

static bool handOver(const Home& home, const QString& line)
{
    return changeIniAtOnce(home.settingsFile(), [&](const auto&) {
        return std::vector<IniChange>{{u"ftl"_s, u"1"_s, line}, {u"ftl"_s, u"num"_s, u"1"_s}};
    });
}

/// From the handing over to the moment at which the window answers with its lines. The queue is
/// looked at every 300 ms: the least of several openings has hardly waited for that.
static Opening openingOfProgram(Desktop& desktop, const QString& packet)
{
    const Home home;
    home.setOption(u"as"_s, false);
    Application program(desktop, home);
    AccessibilityBus bus(desktop);
    if (!program.startAndShow()) {
        return {};
    }
    const auto list = bus.control(program.pid(), u"list"_s, u"Playlist"_s);
    const double before = megabytes(program.pid());
    Opening least{1e9, 0};
    for (int i = 0; i < kOpenings && list; ++i) {
        QThread::msleep(37UL * static_cast<unsigned long>(i)); // another moment of the tick
        QElapsedTimer clock;
        clock.start();
        const bool done = handOver(home, packet) &&
                          program.next(u"^orvanta.playlist: loaded 1 packets, 32767"_s) &&
                          list->childCount() == kEntries + 2;
        least.seconds = std::min(least.seconds, done ? secondsOf(clock) : 1e9);
        if (i == 0) {
            least.megabytes = megabytes(program.pid()) - before;
        }
    }
    return least;
}

static Opening openingOfMpv(const Desktop& desktop, const QString& list)
{
    Opening least{1e9, 0};
    for (int i = 0; i < kOpenings; ++i) {
        const MapWatch watch(desktop);
        MpvProcess mpv(desktop);
        mpv.start();
        if (!watch.waitForWindow("mpv") || !mpv.connectToIt()) {
            return {};
        }
        const double before = megabytes(mpv.pid());
        QElapsedTimer clock;
        clock.start();
        mpv.loadList(list);
        const bool done = mpv.waitForEntries(kEntries);
        least.seconds = std::min(least.seconds, done ? secondsOf(clock) : 1e9);
        least.megabytes = megabytes(mpv.pid()) - before;
    }
    return least;
}

static void measureOpening(Desktop& desktop)
{
    const Opening ours = openingOfProgram(desktop, longPacket(desktop));
    const Opening theirs = openingOfMpv(desktop, longList(desktop));
    say("opening 32767 clips", ours.seconds, theirs.seconds, "s", 0.7);
    std::printf("%-44s %9.1f  mpv %9.1f MB  (at most 40)\n", "memory for 32767 clips",
                ours.megabytes, theirs.megabytes);
}

struct Rest
{
    double percent = -1; // of one core
    double wakeUps = -1; // a second, all threads
};

static Rest rest(qint64 pid)
{
    QThread::msleep(2000); // what a start leaves to be done
    const double before = processorSeconds(pid);
    const qint64 wakeUpsBefore = wakeUps(pid);
    QThread::msleep(kRestMs);
    const double seconds = kRestMs / 1000.0;
    return {(processorSeconds(pid) - before) / seconds * 100,
            static_cast<double>(wakeUps(pid) - wakeUpsBefore) / seconds};
}

static void measureRest(const Desktop& desktop)
{
    const Home home;
    Application program(desktop, home);
    const Rest ours = program.startAndShow() ? rest(program.pid()) : Rest();
    const MapWatch watch(desktop);
    MpvProcess mpv(desktop);
    mpv.start();
    const Rest theirs = watch.waitForWindow("mpv") ? rest(mpv.pid()) : Rest();
    std::printf("%-44s %9.2f  mpv %9.2f %% of a core (at most 0.5)\n", "idle with its window shown",
                ours.percent, theirs.percent);
    std::printf("%-44s %9.2f  mpv %9.2f a second (at most 1)\n", "wake-ups of all threads, idle",
                ours.wakeUps, theirs.wakeUps);
}

} // namespace orvanta::bench

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    std::setlocale(LC_NUMERIC, "C");
    orvanta::e2e::Desktop desktop({.windowManager = false});
    if (!desktop.isReady()) {
        std::fprintf(stderr, "%s\n", qPrintable(desktop.problem()));
        return 1;
    }
    orvanta::bench::measureStart(desktop);
    orvanta::bench::measureFirstPictures(desktop);
    orvanta::bench::measureOpening(desktop);
    orvanta::bench::measureRest(desktop);
    return 0;
}
