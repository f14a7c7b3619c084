// Being led through a brake packet.

#include "tests/e2e/support/end_to_end.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Brakes : public EndToEnd
{
protected:
    QString lesson()
    {
        return writeBrakes(file(u"lesson.vxl"_s), media(u"brakes6.mp4"_s), m_brakes);
    }

    QString lessonAndClip()
    {
        const QString clips =
            writeClips(file(u"after.vxl"_s), {{media(u"short.wav"_s), u"Afterwards"_s}});
        return writeGroup(file(u"group.vxg"_s), {{lesson(), u"Lesson"_s}, {clips, u"Clips"_s}});
    }

    const QList<BrakeLine> m_brakes = {
        {0, u"Look"_s}, {1.5, u"Listen"_s}, {3, u"Repeat"_s}, {4.5, u"The end"_s}};
};

TEST_F(Brakes, EachTextStandsThereByTheTimeThePositionIsSixTenthsPastItsBrake)
{
    constexpr double kAllowed = 0.6;
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(plays(u"start 1 1 Look"_s));
    ASSERT_TRUE(waitFor([this] { return window().clipText() == u"Look"; }));
    for (const BrakeLine& brake : m_brakes) {
        double position = 0;
        // The position is read first: the text that is read next must already be there.
        const bool appeared = waitFor([&] {
            position = window().currentSeconds();
            return window().clipText() == brake.text;
        });
        ASSERT_TRUE(appeared) << brake.text.toStdString();
        EXPECT_LE(position, brake.seconds + kAllowed) << brake.text.toStdString();
    }
}

TEST_F(Brakes, TheListFollowsThePosition)
{
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(plays(u"start 1 2 Listen"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentRow() == 3; }));
    ASSERT_TRUE(plays(u"start 1 3 Repeat"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentRow() == 4; }));
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

TEST_F(Brakes, StopWaitsPausedAtTheStartOfTheCurrentBrake)
{
    ASSERT_TRUE(program.startAndShow({lesson()}));
    ASSERT_TRUE(window().isEnabled(u"Stop"_s)); // found now, pressed without delay
    ASSERT_TRUE(plays(u"start 1 2 Listen"_s));
    window().press(u"Stop"_s);
    ASSERT_TRUE(waitFor([this] { return window().currentTime() == u"0.00"; }));
    EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    EXPECT_FALSE(window().isEnabled(u"Pause"_s));
    // Two launches take longer than it would take to run out of the second brake.
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_EQ(window().currentTime(), u"0.00"_s);
    EXPECT_EQ(window().clipText(), u"Listen"_s);

    window().press(u"Play"_s);
    ASSERT_TRUE(waitFor([this] { return window().currentTime() != u"0.00"; }));
    EXPECT_GE(window().currentSeconds(), 1.5);
    EXPECT_LE(window().currentSeconds(), 2.6);
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
