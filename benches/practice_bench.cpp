// What practising costs: the text over the picture, the way to another line, and a whole lesson
// with repeats and waits against the sum of what is heard and waited for. All in one run.
//
//   bench_practice [text] [line] [lesson]     without a name: all three

#include "benches/bench_clips.h"
#include "benches/mpv_process.h"
#include "tests/e2e/support/application.h"
#include "tests/e2e/support/home.h"
#include "tests/e2e/support/packets.h"
#include "tests/e2e/support/screen_eye.h"
#include "tests/e2e/support/wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <array>
#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace orvanta::bench {

using namespace orvanta::e2e;

// ---- the text over the picture ---------------------------------------------------------------

constexpr int kTextRounds = 5;

/// 10 s of 720p25, as bench_play has it, but without sound.
static QString playedClip()
{
    return makeClip(u"bench-text.mp4"_s, u"testsrc2=size=1280x720:rate=25"_s, u"10"_s);
}

/// Processor seconds of the whole program for the clip, at a level of text: 0 off, 2 large.
static double costWithText(Desktop& desktop, int level)
{
    const Home home;
    home.set(u"practice"_s, u"text"_s, QString::number(level));
    const QString packet =
        writeClips(desktop.folder() + u"/text.vxl"_s,
                   {{playedClip(), u"Listen, and say it again after the clip, a little slower"_s}});
    Application program(desktop, home);
    program.start({packet});
    return program.next(u"^orvanta.playback: ended"_s) ? processorSeconds(program.pid()) : -1;
}

static void measureText()
{
    Desktop desktop({.screen = {1920, 1080}});
    std::array<std::vector<double>, 3> costs;
    for (int round = 0; round < kTextRounds; ++round) { // in turns: all meet the same machine
        for (std::size_t level = 0; level < costs.size(); ++level) {
            costs[level].push_back(costWithText(desktop, int(level)));
        }
    }
    const double off = median(costs[0]);
    std::printf("720p25 for 10 s, CPU without text %.2f s, with text ratio %.3f, large %.3f "
                "(at most 1.03)\n",
                off, median(costs[1]) / off, median(costs[2]) / off);
}

// ---- to another line ---------------------------------------------------------------------------

constexpr int kLineRounds = 15;
constexpr double kLimitMs = 10000;

// In black minutes and in white ones, in the middle between two key pictures; seconds.
constexpr std::array kBlackLines = {33.4, 153.4};
constexpr double kWhiteLine = 93.4;

static double milliseconds(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

static bool becomesBright(ScreenEye& eye, QPoint place, bool bright)
{
    QElapsedTimer clock;
    clock.start();
    while (eye.isBright(place) != bright && milliseconds(clock) < kLimitMs) {
        QThread::usleep(300);
    }
    return milliseconds(clock) < kLimitMs;
}

/// From the key to the white box of the next line, as it is on the screen.
static double ourLineTime(ScreenEye& eye, QPoint box)
{
    eye.press("Prior");
    if (!becomesBright(eye, box, false)) {
        return kLimitMs;
    }
    QThread::msleep(150);
    QElapsedTimer clock;
    clock.start();
    eye.press("Next");
    return becomesBright(eye, box, true) ? milliseconds(clock) : kLimitMs;
}

/// From the command to a paused player's report of the first picture.
static double theirLineTime(MpvProcess& mpv)
{
    mpv.send("\"seek\"," + QByteArray::number(kBlackLines[0]) + ",\"absolute+exact\"");
    if (!mpv.waitForEvent("playback-restart")) {
        return kLimitMs;
    }
    QThread::msleep(150);
    QElapsedTimer clock;
    clock.start();
    mpv.send("\"seek\"," + QByteArray::number(kWhiteLine) + ",\"absolute+exact\"");
    return mpv.waitForEvent("playback-restart") ? milliseconds(clock) : kLimitMs;
}

static void measureLine()
{
    Desktop desktop({.screen = {1920, 1080}});
    ScreenEye eye(desktop);
    eye.darkenBackground();
    const QString packet = writeBrakes(desktop.folder() + u"/lines.vxl"_s, minutesClip(),
                                       {{kBlackLines[0], u"Black"_s},
                                        {kWhiteLine, u"White"_s},
                                        {kBlackLines[1], u"Black"_s},
                                        {199, u"End"_s}});
    MpvProcess mpv(desktop);
    // Beside the program's windows, which a window of its size would cover.
    mpv.start({u"--vo=x11"_s, u"--ao=null"_s, u"--geometry=+1900+1060"_s, u"--keep-open=yes"_s,
               minutesClip()});
    const bool played = mpv.connectToIt() && theirLineTime(mpv) < kLimitMs;
    const Home home;
    Application program(desktop, home);
    program.start({packet});
    const QString title = QFileInfo(minutesClip()).completeBaseName();
    if (!played || !program.next(u"^orvanta.playback: start"_s) ||
        !waitFor([&] { return !desktop.placeOf(title).isEmpty(); }) || !desktop.activate(title)) {
        std::printf("to the next line: the players do not play\n");
        return;
    }
    const QRect place = desktop.placeOf(title); // perhaps smaller than the picture is
    const QPoint box =
        place.topLeft() + QPoint(place.width() * 1100 / 1280, place.height() * 400 / 720);
    eye.press("Next");
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < kLineRounds; ++round) {
        if (becomesBright(eye, box, true)) {
            ours.push_back(ourLineTime(eye, box));
            eye.press("p"); // both stand while the other is measured
            theirs.push_back(theirLineTime(mpv));
            eye.press("r");
        }
    }
    std::printf("Page Down to the line's first picture %.1f ms, mpv's exact seek %.1f ms, ratio "
                "%.3f (at most 1.10)\n",
                median(ours), median(theirs), median(ours) / median(theirs));
}

// ---- a lesson
// ------------------------------------------------------------------------------------

constexpr int kLines = 20;
constexpr int kTimes = 3;
constexpr double kSpeed = 0.8;

/// Seconds from its first line to its end mark, with lines of so many seconds.
static double lessonTime(Desktop& desktop, double seconds)
{
    const Home home;
    home.set(u"practice"_s, u"speed"_s, QString::number(kSpeed * 100));
    home.set(u"practice"_s, u"repeat"_s, QString::number(kTimes));
    home.set(u"practice"_s, u"wait"_s, u"100"_s);
    QList<BrakeLine> brakes;
    for (int line = 0; line <= kLines; ++line) {
        brakes.append({1 + line * seconds, u"Line %1"_s.arg(line + 1)});
    }
    Application program(desktop, home);
    program.start({writeBrakes(desktop.folder() + u"/lesson.vxl"_s, minutesClip(), brakes)});
    const QString start = u"^orvanta.playback: start 1 %1 "_s;
    const auto first = program.next(start.arg(1));
    constexpr int kLimit = 600000;
    const auto last = program.next(start.arg(kLines + 1), kLimit);
    return first && last ? last->seconds - first->seconds : -1;
}

static void measureLesson(double seconds)
{
    Desktop desktop({.screen = {1920, 1080}});
    const double sum = kLines * (kTimes + 1) * seconds / kSpeed;
    const double took = lessonTime(desktop, seconds);
    std::printf("%d lines of %.0f s, %d times at %.1f, waits as long: %.2f s for %.2f s, ratio "
                "%.3f (at most 1.03); too much per round %.0f ms\n",
                kLines, seconds, kTimes, kSpeed, took, sum, took / sum,
                (took - sum) / (kLines * kTimes) * 1000);
}

} // namespace orvanta::bench

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    std::setlocale(LC_NUMERIC, "C");
    const QStringList wanted = QCoreApplication::arguments().mid(1);
    const auto isWanted = [&](const QString& name) {
        return wanted.isEmpty() || wanted.contains(name);
    };
    if (isWanted(u"text"_s)) {
        orvanta::bench::measureText();
    }
    if (isWanted(u"line"_s)) {
        orvanta::bench::measureLine();
    }
    if (isWanted(u"lesson"_s)) {
        constexpr double kWord = 1;     // seconds
        constexpr double kSentence = 3; // seconds
        orvanta::bench::measureLesson(kSentence);
        orvanta::bench::measureLesson(kWord);
    }
    return 0;
}
