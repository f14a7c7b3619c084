// Being led through a brake packet.

#include "tests/e2e/support/end_to_end.h"
#include "tests/e2e/support/mpris_client.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Brakes : public EndToEnd
{
protected:
    QString lesson() { return lesson(u"lesson"_s, m_brakes); }

    QString lesson(const QString& name, const QList<BrakeLine>& brakes)
    {
        return writeBrakes(file(name + u".vxl"_s), media(u"brakes6.mp4"_s), brakes);
    }

    QString lessonAndClip()
    {
        const QString clips =
            writeClips(file(u"after.vxl"_s), {{media(u"short.wav"_s), u"Afterwards"_s}});
        return writeGroup(file(u"group.vxg"_s), {{lesson(), u"Lesson"_s}, {clips, u"Clips"_s}});
    }

    /// From 1; 0 for none.
    [[nodiscard]] int brakeWithText(const QString& text) const
    {
        for (int i = 0; i < m_brakes.size(); ++i) {
            if (m_brakes[i].text == text) {
                return i + 1;
            }
        }
        return 0;
    }

    /// The brake whose text must stand there at this position at the latest.
    [[nodiscard]] int brakeDueAt(double seconds) const
    {
        constexpr double kAllowed = 0.6;
        return static_cast<int>(
            std::count_if(m_brakes.begin(), m_brakes.end(), [=](const BrakeLine& brake) {
                return brake.seconds + kAllowed < seconds;
            }));
    }

    const QList<BrakeLine> m_brakes = {
        {0, u"Look"_s}, {1.5, u"Listen"_s}, {3, u"Repeat"_s}, {4.5, u"The end"_s}};
    /// There is time to act while the second brake is the current one.
    const QList<BrakeLine> m_shortFirst = {
        {0, u"Look"_s}, {1, u"Listen"_s}, {5, u"Repeat"_s}, {5.8, u"The end"_s}};
};

TEST_F(Brakes, EachTextStandsThereByTheTimeThePositionIsSixTenthsPastItsBrake)
{
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(loads(1, 4));
    // What is looked at is found now, not while time matters.
    ASSERT_EQ(window().clipText(), u""_s);
    ASSERT_EQ(window().currentTime(), u"0.00"_s);
    window().doubleClickRow(2);
    ASSERT_TRUE(plays(u"start 1 1 Look"_s));
    QStringList seen;
    const bool cameToTheEnd = waitFor([&] {
        // The position is read first: the text that is read next must already be there.
        const double position = window().currentSeconds();
        const QString text = window().clipText();
        EXPECT_GE(brakeWithText(text), brakeDueAt(position))
            << text.toStdString() << " at " << position;
        seen += seen.contains(text) ? QString() : text;
        return text == m_brakes.last().text;
    });
    EXPECT_TRUE(cameToTheEnd);
    EXPECT_TRUE(seen.contains(u"Listen"_s) && seen.contains(u"Repeat"_s));
}

TEST_F(Brakes, ArePassedWithoutThePositionEverGoingBack)
{
    const QList<BrakeLine> brakes = {{0, u"One"_s},    {0.9, u"Two"_s},  {1.8, u"Three"_s},
                                     {2.6, u"Four"_s}, {3.5, u"Five"_s}, {5, u"The end"_s}};
    MprisClient controls(desktop);
    ASSERT_TRUE(program.startAndShow({lesson(u"many brakes"_s, brakes)}));
    ASSERT_TRUE(plays(u"start 1 1 One"_s));
    ASSERT_TRUE(waitFor([&] { return controls.status() == u"Playing"; }));
    double furthest = controls.seconds();
    while (controls.status() == u"Playing" && furthest < 4.5) {
        const double now = controls.seconds();
        ASSERT_GE(now, furthest);
        furthest = now;
    }
    EXPECT_GE(furthest, 4.5);
    ASSERT_TRUE(plays(u"start 1 5 Five"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start"_s)).size(), 5);
}

TEST_F(Brakes, TheListFollowsThePosition)
{
    ASSERT_TRUE(program.startAndShow({lesson(u"short first brake"_s, m_shortFirst)}));
    // The list is found now, not while time matters.
    ASSERT_TRUE(waitFor([this] { return !window().rows().isEmpty(); }));
    ASSERT_TRUE(plays(u"start 1 1 Look"_s));
    ASSERT_TRUE(plays(u"start 1 2 Listen"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentRow() == 3; }));
}

TEST_F(Brakes, TheLastBrakeMovesOnToTheNextPacket)
{
    ASSERT_TRUE(program.startAndShow({lessonAndClip()}));
    ASSERT_TRUE(plays(u"start 1 4 The end"_s));
    EXPECT_TRUE(plays(u"start 2 1 Afterwards"_s));
    EXPECT_TRUE(plays(u"ended 2 1"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"ended 1"_s)), QStringList());
}

TEST_F(Brakes, TheLastBrakeOfTheLastPacketStops)
{
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(plays(u"start 1 4 The end"_s));
    EXPECT_TRUE(plays(u"stopped"_s));
    EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    saidUntilAnotherFileIsOpen();
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start"_s)).size(), m_brakes.size());
}

TEST_F(Brakes, ALastBrakeAtTheVeryEndOfTheClipMovesOnToTheNextPacket)
{
    const QString toTheEnd = writeBrakes(file(u"to the end.vxl"_s), media(u"video2.mp4"_s),
                                         {{0, u"Begin"_s}, {2, u"The very end"_s}});
    const QString clips =
        writeClips(file(u"after.vxl"_s), {{media(u"short.wav"_s), u"Afterwards"_s}});
    ASSERT_TRUE(program.startAndShow(
        {writeGroup(file(u"group.vxg"_s), {{toTheEnd, u"Lesson"_s}, {clips, u"Clips"_s}})}));
    ASSERT_TRUE(plays(u"start 1 1 Begin"_s));
    EXPECT_TRUE(plays(u"start 2 1 Afterwards"_s));
}

TEST_F(Brakes, StopWaitsPausedAtTheStartOfTheCurrentBrake)
{
    ASSERT_TRUE(program.startAndShow({lesson(u"short first brake"_s, m_shortFirst)}));
    ASSERT_TRUE(window().isEnabled(u"Stop"_s)); // found now, pressed without delay
    ASSERT_TRUE(plays(u"start 1 2 Listen"_s));
    window().press(u"Stop"_s);
    ASSERT_TRUE(waitFor([this] { return window().currentTime() == u"0.00"; }));
    EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    EXPECT_FALSE(window().isEnabled(u"Pause"_s));
    // Several ticks later: a running clip would show its time.
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_EQ(window().currentTime(), u"0.00"_s);
    EXPECT_EQ(window().clipText(), u"Listen"_s);

    window().press(u"Play"_s);
    double first = 0;
    ASSERT_TRUE(waitFor([&] { return (first = window().currentSeconds()) > 0; }));
    EXPECT_GE(first, 1);
    EXPECT_LE(first, 2.5);
    EXPECT_TRUE(plays(u"start 1 3 Repeat"_s));
}

TEST_F(Brakes, ADoubleClickStartsThatBrakeWithoutPassingTheOthers)
{
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    window().doubleClickRow(4);
    ASSERT_TRUE(plays(u"start 1 3 Repeat"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentSeconds() >= 3; }));
    EXPECT_TRUE(plays(u"start 1 4 The end"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start 1 2"_s)), QStringList());
}

} // namespace orvanta::e2e
