// Practising a lesson: rounds, waits, tempo, by every way in which it can be asked for.

#include "tests/e2e/support/steered.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Practising : public Steered
{
protected:
    void practise(const QString& key, const QString& value) { home.set(u"practice"_s, key, value); }

    [[nodiscard]] QString stored(const QString& key) const { return home.get(u"practice"_s, key); }
    [[nodiscard]] bool becomesStored(const QString& key, const QString& value) const
    {
        return waitFor([&] { return stored(key) == value; });
    }

    /// Brakes from one second on, this far apart; the last is the end mark.
    QString lesson(int lines, double seconds)
    {
        QList<BrakeLine> brakes;
        for (int i = 0; i <= lines; ++i) {
            brakes.append({1 + i * seconds, u"Line %1"_s.arg(i + 1)});
        }
        return writeBrakes(file(u"lesson.vxl"_s), media(u"tone20.wav"_s), brakes);
    }

    QString clips()
    {
        return writeClips(file(u"clips.vxl"_s), {{media(u"video2.mp4"_s), u"One"_s},
                                                 {media(u"video3.mp4"_s), u"Two"_s},
                                                 {media(u"video15.mp4"_s), u"Three"_s}});
    }

    [[nodiscard]] double rate() { return controls.rate(); }
    [[nodiscard]] bool rateBecomes(double wanted)
    {
        return waitFor([&] { return std::abs(rate() - wanted) < 0.001; });
    }
};

TEST_F(Practising, ALessonOfTwentyLinesThreeTimesEachWithWaitsPlaysThemAllInOrder)
{
    constexpr int kLines = 20;
    constexpr double kLine = 0.4; // seconds
    constexpr double kSpeed = 0.8;
    practise(u"speed"_s, u"80"_s);
    practise(u"repeat"_s, u"3"_s);
    practise(u"wait"_s, u"100"_s);
    ASSERT_TRUE(program.startAndShow({lesson(kLines, kLine)}));
    ASSERT_TRUE(plays(u"start 1 1 Line 1"_s));
    QElapsedTimer lasted;
    lasted.start();
    for (int line = 1; line <= kLines; ++line) {
        for (int round = 2; round <= 3; ++round) {
            ASSERT_TRUE(plays(u"again 1 %1 %2"_s.arg(line).arg(round)));
        }
        ASSERT_TRUE(plays(u"waiting 1 %1"_s.arg(line)));
        ASSERT_TRUE(plays(u"start 1 %1 Line %1"_s.arg(line + 1)));
    }
    // Faster than the sum of what is heard and waited for it cannot be.
    const double sum = kLines * 4 * kLine / kSpeed;
    EXPECT_GT(static_cast<double>(lasted.elapsed()) / 1000, sum * 0.97);
    ASSERT_TRUE(plays(u"stopped"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"again"_s)).size(), 2 * kLines);
    EXPECT_EQ(program.linesMatching(playbackPattern(u"waiting"_s)).size(), kLines);
}

TEST_F(Practising, AWaitForAKeyEndsWithSpaceTheRemotesKeyAndTheMediaControls)
{
    practise(u"wait"_s, u"-1"_s);
    ASSERT_TRUE(program.startAndShow({lesson(5, 0.5)}));
    ASSERT_TRUE(plays(u"waiting 1 1"_s));
    EXPECT_TRUE(becomes(u"Paused"_s));
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"space"_s);
    ASSERT_TRUE(plays(u"start 1 2"_s));
    ASSERT_TRUE(plays(u"waiting 1 2"_s));
    desktop.press(u"Next"_s); // Page Down
    ASSERT_TRUE(plays(u"start 1 3"_s));
    ASSERT_TRUE(plays(u"waiting 1 3"_s));
    controls.call(u"PlayPause"_s);
    ASSERT_TRUE(plays(u"start 1 4"_s));
    ASSERT_TRUE(plays(u"waiting 1 4"_s));
    controls.call(u"Play"_s);
    ASSERT_TRUE(plays(u"start 1 5"_s));
}

TEST_F(Practising, AWaitAfterAClipEndsInTheVideoWindowToo)
{
    practise(u"wait"_s, u"-1"_s);
    ASSERT_TRUE(program.startAndShow({clips()}));
    ASSERT_TRUE(plays(u"waiting 1 1"_s));
    ASSERT_TRUE(desktop.activate(u"video2"_s));
    desktop.press(u"space"_s);
    ASSERT_TRUE(plays(u"start 1 2 Two"_s));
    ASSERT_TRUE(plays(u"waiting 1 2"_s));
    window().doubleClickRow(2);
    ASSERT_TRUE(plays(u"start 1 1 One"_s));
}

TEST_F(Practising, LinesAreSteppedThroughAndBegunAgainByKeysOfBothWindows)
{
    ASSERT_TRUE(program.startAndShow({clips()}));
    ASSERT_TRUE(plays(u"start 1 1 One"_s));
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"Next"_s);
    ASSERT_TRUE(plays(u"start 1 2 Two"_s));
    desktop.press(u"Next"_s);
    ASSERT_TRUE(plays(u"start 1 3 Three"_s));
    ASSERT_TRUE(desktop.activate(u"video15"_s));
    ASSERT_TRUE(comesBetween(1.5, 15));
    desktop.press(u"BackSpace"_s);
    EXPECT_TRUE(waitFor([&] { return controls.seconds() < 1.4; }));
    desktop.press(u"Prior"_s); // Page Up
    EXPECT_TRUE(plays(u"start 1 2 Two"_s));
}

TEST_F(Practising, TempoIsTheSameByKeysMediaControlsMenuAndSettings)
{
    playLesson();
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"F7"_s);
    EXPECT_TRUE(rateBecomes(0.95));
    EXPECT_TRUE(becomesStored(u"speed"_s, u"95"_s));
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    desktop.press(u"F8"_s);
    desktop.press(u"F8"_s);
    EXPECT_TRUE(rateBecomes(1.1));
    controls.setRate(0.8);
    EXPECT_TRUE(becomesStored(u"speed"_s, u"80"_s));
    desktop.press(u"Menu"_s);
    desktop.press(u"c"_s); // Practice
    desktop.press(u"s"_s); // Slower
    EXPECT_TRUE(rateBecomes(0.75));
    desktop.press(u"shift+F7"_s);
    EXPECT_TRUE(rateBecomes(1));
}

TEST_F(Practising, TheClipRunsAtTheTempo)
{
    practise(u"speed"_s, u"50"_s);
    playLesson();
    const double from = controls.seconds();
    QElapsedTimer lasted;
    lasted.start();
    ASSERT_TRUE(comesBetween(from + 2, kLength));
    // A busy machine makes it longer, never shorter.
    EXPECT_GT(static_cast<double>(lasted.elapsed()) / 1000, 3.6);
}

TEST_F(Practising, RepeatingIsTheMediaControlsLoopOfATrack)
{
    ASSERT_TRUE(program.startAndShow({lesson(3, 0.6)}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"F6"_s);
    EXPECT_TRUE(waitFor([&] { return controls.loop() == u"Track"; }));
    ASSERT_TRUE(plays(u"again 1"_s));
    ASSERT_TRUE(plays(u"again 1"_s));
    controls.setLoop(u"None"_s);
    EXPECT_TRUE(becomesStored(u"repeat"_s, u"1"_s));
    ASSERT_TRUE(plays(u"start 1 4"_s));
}

} // namespace orvanta::e2e
