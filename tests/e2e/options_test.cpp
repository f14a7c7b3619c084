// What each option of automatic playing changes.

#include "tests/e2e/support/end_to_end.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Options : public EndToEnd
{
protected:
    QString packetOfTwo()
    {
        return writeClips(file(u"two.vxl"_s), {{media(u"short.mp4"_s), u"First"_s},
                                               {media(u"short.wav"_s), u"Second"_s}});
    }

    QString groupOfTwo()
    {
        const QString first = writeClips(file(u"one.vxl"_s), {{media(u"short.mp4"_s), u"Only"_s}});
        return writeGroup(file(u"both.vxg"_s), {{first, u"A"_s}, {packetOfTwo(), u"B"_s}});
    }

    bool startsNothing()
    {
        const QStringList said = saidUntilAnotherFileIsOpen();
        return said.filter(QRegularExpression(u"^orvanta.playback: start"_s)).isEmpty();
    }
};

TEST_F(Options, AutoStartStartsTheFirstClipAfterOpening)
{
    home.setOption(u"as"_s, true);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    EXPECT_TRUE(loads(1, 2));
    EXPECT_TRUE(plays(u"start 1 1 First"_s));
    EXPECT_TRUE(waitFor([&] { return window().clipText() == u"First"; }));
}

TEST_F(Options, WithoutAutoStartOpeningStartsNothing)
{
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(loads(1, 2));
    EXPECT_TRUE(startsNothing());
}

TEST_F(Options, NextClipFollowsByItself)
{
    home.setOption(u"agnc"_s, true);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    EXPECT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(plays(u"start 1 2 Second"_s));
    EXPECT_TRUE(plays(u"ended 1 2"_s));
}

TEST_F(Options, WithoutNextClipPlayingRestsAfterEachClip)
{
    home.setOption(u"agnc"_s, false);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(startsNothing());
}

TEST_F(Options, NextPacketFollowsByItself)
{
    home.setOption(u"agnp"_s, true);
    ASSERT_TRUE(program.startAndShow({groupOfTwo()}));
    EXPECT_TRUE(loads(2, 3));
    EXPECT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(plays(u"start 2 1 First"_s));
}

TEST_F(Options, WithoutNextPacketPlayingRestsAfterEachPacket)
{
    home.setOption(u"agnp"_s, false);
    ASSERT_TRUE(program.startAndShow({groupOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(startsNothing());
}

TEST_F(Options, NextClipAloneDoesNotLeaveThePacketAfterItsLastClip)
{
    home.setOption(u"agnp"_s, false);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"start 1 2"_s));
    ASSERT_TRUE(plays(u"ended 1 2"_s));
    EXPECT_TRUE(startsNothing());
}

TEST_F(Options, ReplayBeginsAgainAfterTheLastClip)
{
    home.setOption(u"ar"_s, true);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 2"_s));
    EXPECT_TRUE(plays(u"start 1 1"_s));
    EXPECT_TRUE(plays(u"ended 1 2"_s));
    EXPECT_TRUE(plays(u"start 1 1"_s));
}

TEST_F(Options, WithoutReplayPlayingIsOverAndNoLineIsCurrent)
{
    home.setOption(u"ar"_s, false);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 2"_s));
    EXPECT_TRUE(waitFor([&] { return window().currentRow() == -1; }));
    EXPECT_TRUE(startsNothing());
    EXPECT_TRUE(program.isRunning());
}

TEST_F(Options, AutoCloseEndsTheProgramAfterFilesFromTheShell)
{
    home.setOption(u"acp"_s, true);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 2"_s));
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(Options, AutoCloseSaysFirstWhatCannotBePlayed)
{
    home.setOption(u"acp"_s, true);
    ASSERT_TRUE(program.startAndShow({media(u"noise.avi"_s)}));
    EXPECT_TRUE(waitFor([&] { return window().clipText() == u"Cannot play: noise.avi"; }));
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(Options, AutoCloseWaitsForTheLastClipOfAll)
{
    home.setOption(u"acp"_s, true);
    ASSERT_TRUE(program.startAndShow({groupOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    ASSERT_TRUE(plays(u"ended 2 1"_s));
    ASSERT_TRUE(plays(u"ended 2 2"_s));
    EXPECT_TRUE(program.waitForEnd());
}

TEST_F(Options, AnyTextButOneIsOff)
{
    home.set(u"options"_s, u"agnc"_s, u"yes"_s);
    ASSERT_TRUE(program.startAndShow({packetOfTwo()}));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(startsNothing());
}

TEST_F(Options, AnOptionChangedInTheFileWhileAClipPlaysTakesEffectAtItsEnd)
{
    home.setOption(u"agnc"_s, false);
    const QString packet = writeClips(file(u"slow.vxl"_s), {{media(u"sound2.wav"_s), u"Long"_s},
                                                            {media(u"short.wav"_s), u"Short"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    home.setOption(u"agnc"_s, true);
    EXPECT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(plays(u"start 1 2"_s));
}

} // namespace orvanta::e2e
