// How soon the program obeys, and what a large picture costs, beside an ordinary player on the same
// display in the same run. Everything is seen from outside: real keys in, points of the screen out.

#include "benches/bench_clips.h"
#include "tests/e2e/support/application.h"
#include "tests/e2e/support/home.h"
#include "tests/e2e/support/mpris_client.h"
#include "tests/e2e/support/screen_eye.h"
#include "tests/e2e/support/tray.h"
#include "tests/e2e/support/wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>
#include <QThread>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::bench {

using namespace orvanta::e2e;

constexpr int kRounds = 15;
constexpr int kFrames = 250; // of the counted clip: 10 s
constexpr int kBits = 8;
constexpr int kBitWidth = 64; // pixels of the counted clip, 1920 wide
const QString kMainWindow = u"!Orvanta!"_s;
const QString kYardstick = u"yardstick"_s;

/// Milliseconds until the condition holds; the machine is left some time to make it hold.
static double millisecondsUntil(const std::function<bool()>& condition)
{
    constexpr double kLimit = 10000;
    QElapsedTimer clock;
    clock.start();
    double passed = 0;
    while (!condition() && passed < kLimit) {
        QThread::usleep(500);
        passed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    }
    return passed;
}

// ---- clips ---------------------------------------------------------------------------------

/// 10 s of 1080p25. Boxes along the top edge are the number of the picture, white for 1.
static QString countedClip()
{
    QString source = u"testsrc2=size=1920x1080:rate=25"_s;
    for (int bit = 0; bit < kBits; ++bit) {
        const QString box =
            u",drawbox=x=%1:y=0:w=%2:h=64:t=fill:color="_s.arg(bit * kBitWidth).arg(kBitWidth);
        source += box + u"black"_s + box + u"white:enable='mod(floor(n/%1),2)'"_s.arg(1 << bit);
    }
    return makeClip(u"bench-counted.mp4"_s, source, u"10"_s);
}

// ---- the two players -------------------------------------------------------------------------

/// The program, playing a clip.
class Ours
{
public:
    Ours(Desktop& desktop, const QString& clip)
        : m_desktop(desktop),
          m_program(desktop, m_home),
          m_title(QFileInfo(clip).completeBaseName())
    {
        m_home.setOption(u"as"_s, true);
        m_home.setOption(u"ar"_s, false);
        m_program.start({clip});
    }

    [[nodiscard]] bool isReady()
    {
        return m_program.next(u"^orvanta.playback: start"_s).has_value() &&
               waitFor([this] { return !place().isEmpty(); });
    }
    [[nodiscard]] QRect place() { return m_desktop.placeOf(m_title); }
    Application& program() { return m_program; }
    [[nodiscard]] QString title() const { return m_title; }

private:
    Home m_home;
    Desktop& m_desktop;
    Application m_program;
    QString m_title;
};

/// mpv with the output that draws as the program does.
class Theirs
{
public:
    Theirs(Desktop& desktop, const QString& clip)
        : m_desktop(desktop)
    {
        const QString keys = desktop.folder() + u"/keys.conf"_s;
        QFile file(keys);
        if (file.open(QIODevice::WriteOnly)) {
            file.write("m seek 60 relative+exact\nb seek -60 relative+exact\nF11 cycle fullscreen\n"
                       "p set pause yes\nr set pause no\n");
        }
        file.close();
        m_process.setProcessEnvironment(desktop.environment());
        m_process.start(u"mpv"_s, {u"--no-config"_s, u"--no-terminal"_s, u"--vo=x11"_s,
                                   u"--ao=null"_s, u"--osc=no"_s, u"--osd-level=0"_s,
                                   u"--title="_s + kYardstick, u"--input-conf="_s + keys, clip});
    }

    [[nodiscard]] bool isReady()
    {
        return waitFor([this] { return !place().isEmpty(); });
    }
    [[nodiscard]] QRect place() { return m_desktop.placeOf(kYardstick); }
    [[nodiscard]] qint64 pid() const { return m_process.processId(); }
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

private:
    Desktop& m_desktop;
    OwnedProcess m_process;
};

// ---- measurements ----------------------------------------------------------------------------

static void say(const char* what, double ours, double theirs, const char* unit, double allowed)
{
    std::printf("%-44s %9.2f  mpv %9.2f %-3s ratio %6.3f (at most %.2f)\n", what, ours, theirs,
                unit, ours / theirs, allowed);
}

/// From the key to the pause as another program sees it.
static void measurePause(Desktop& desktop, ScreenEye& eye)
{
    MprisClient controls(desktop);
    std::vector<double> times;
    for (int i = 0; i < 2 * kRounds; ++i) {
        const bool pauses = i % 2 == 0;
        eye.press(pauses ? "p" : "r");
        const QString wanted = pauses ? u"Paused"_s : u"Playing"_s;
        const double time = millisecondsUntil([&] { return controls.status() == wanted; });
        if (pauses) {
            times.push_back(time);
        }
        QThread::msleep(30UL + static_cast<unsigned long>(i) * 7);
    }
    std::printf("%-44s %9.2f ms (at most 30)\n", "key to pause, median", median(times));
}

/// From the key to the picture of another minute.
static double seekTime(ScreenEye& eye, QPoint box)
{
    std::vector<double> times;
    for (int i = 0; i < 2 * kRounds; ++i) {
        const bool forward = i % 2 == 0;
        eye.press(forward ? "m" : "b");
        times.push_back(millisecondsUntil([&] { return eye.isBright(box) == forward; }));
        QThread::msleep(100UL + static_cast<unsigned long>(i) * 11);
    }
    return median(times);
}

/// From the key to the picture in the corner of the screen.
static double fullScreenTime(ScreenEye& eye, QPoint corner)
{
    std::vector<double> times;
    for (int i = 0; i < 2 * kRounds; ++i) {
        const bool on = i % 2 == 0;
        eye.press("F11");
        const double time = millisecondsUntil([&] { return eye.isBright(corner) == on; });
        if (on) { // the way back shows the empty background at once
            times.push_back(time);
        }
        QThread::msleep(200);
    }
    return median(times);
}

static void measureSteering()
{
    Desktop desktop({.screen = {1920, 1080}});
    ScreenEye eye(desktop);
    eye.darkenBackground();
    const QPoint corner(1910, 20); // covered by a window only when it fills the screen
    const QPoint inBox(1100, 400); // of the picture
    double ourSeek = 0;
    double ourFullScreen = 0;
    {
        Ours ours(desktop, minutesClip());
        if (!ours.isReady() || !desktop.activate(kMainWindow)) {
            return;
        }
        measurePause(desktop, eye);
        ourSeek = seekTime(eye, ours.place().topLeft() + inBox);
        if (!desktop.activate(ours.title())) {
            return;
        }
        ourFullScreen = fullScreenTime(eye, corner);
    }
    Theirs theirs(desktop, minutesClip());
    if (!theirs.isReady() || !desktop.activate(kYardstick)) {
        return;
    }
    say("seek key to new picture, median", ourSeek, seekTime(eye, theirs.place().topLeft() + inBox),
        "ms", 1.1);
    const double theirFullScreen = fullScreenTime(eye, corner);
    std::printf("%-44s %9.2f  mpv %9.2f ms (at most 150)\n", "full-screen switch, median",
                ourFullScreen, theirFullScreen);
}

/// The number that the boxes show now.
static int numberShown(ScreenEye& eye, const QRect& place)
{
    int number = 0;
    for (int bit = 0; bit < kBits; ++bit) {
        const int x = (bit * kBitWidth + kBitWidth / 2) * place.width() / 1920;
        number |= eye.isBright(place.topLeft() + QPoint(x, 20)) ? 1 << bit : 0;
    }
    return number;
}

/// How many different pictures are seen until there are no new ones.
static int picturesSeen(ScreenEye& eye, const QRect& place)
{
    constexpr int kStillMs = 1500;
    QSet<int> seen;
    QElapsedTimer sinceNew;
    sinceNew.start();
    while (sinceNew.elapsed() < kStillMs) {
        // Looked at twice, since a picture may change in the middle.
        const int number = numberShown(eye, place);
        if (number == numberShown(eye, place) && !seen.contains(number)) {
            seen.insert(number);
            sinceNew.restart();
        }
        QThread::msleep(4);
    }
    return static_cast<int>(seen.size());
}

/// Waits before the first pictures are counted: the window comes with them.
static void measurePictures(Desktop& desktop, ScreenEye& eye)
{
    constexpr int kBeforeWindowIsFound = 25;
    int ours = 0;
    int theirs = 0;
    {
        Ours program(desktop, countedClip());
        ours = program.isReady() ? picturesSeen(eye, program.place()) : 0;
    }
    {
        Theirs mpv(desktop, countedClip());
        theirs = mpv.isReady() ? picturesSeen(eye, mpv.place()) : 0;
    }
    std::printf("%-44s %9d  mpv %9d of %d (those before the window was found are not seen: %d or "
                "fewer)\n",
                "1080p25, pictures seen", ours, theirs, kFrames, kBeforeWindowIsFound);
}

static double cpuOfOurs(Desktop& desktop)
{
    Ours program(desktop, countedClip());
    const bool ended =
        program.isReady() && program.program().next(u"^orvanta.playback: ended"_s).has_value();
    return ended ? processorSeconds(program.program().pid()) : -1;
}

static double cpuOfTheirs(Desktop& desktop)
{
    const Theirs mpv(desktop, countedClip());
    double last = 0;
    const bool ended = waitFor([&] {
        last = std::max(last, processorSeconds(mpv.pid()));
        return !mpv.isRunning();
    });
    return ended ? last : -1;
}

static void measureProcessor(Desktop& desktop)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int i = 0; i < 3; ++i) { // in turns, so that both meet the same machine
        ours.push_back(cpuOfOurs(desktop));
        theirs.push_back(cpuOfTheirs(desktop));
    }
    say("1080p25 for 10 s, CPU of the whole program", median(ours), median(theirs), "s", 1.1);
}

static void measureRest(Desktop& desktop)
{
    constexpr int kRestMs = 10000;
    const Tray tray(desktop);
    const Home home;
    home.setOption(u"si"_s, true);
    Application program(desktop, home);
    if (!program.startAndShow()) {
        return;
    }
    QThread::msleep(1000);
    const double before = processorSeconds(program.pid());
    QThread::msleep(kRestMs);
    std::printf("%-44s %9.2f %% of a core (at most 0.5)\n", "idle with tray and media controls",
                (processorSeconds(program.pid()) - before) / (kRestMs / 1000.0) * 100);
}

} // namespace orvanta::bench

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    std::setlocale(LC_NUMERIC, "C");
    orvanta::bench::measureSteering();
    orvanta::e2e::Desktop desktop({.screen = {2560, 1440}});
    orvanta::bench::ScreenEye eye(desktop);
    orvanta::bench::measurePictures(desktop, eye);
    orvanta::bench::measureProcessor(desktop);
    orvanta::bench::measureRest(desktop);
    return 0;
}
