// What happens to playback when files were dropped or handed in.
#include "tests/playback/engine_fixture.h"

namespace orvanta::test {
namespace {

class DropStep : public EngineTest
{
protected:
    void expectRestAfterDrop(bool groupDropped)
    {
        control.Run();
        view.setCurrentTime(u"7.000"_s);
        view.setClipText(u"one"_s);
        view.moveSlider(40);
        engine->playlistExtended({.groupDropped = groupDropped});
        EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
        EXPECT_EQ(view.currentTime, u"0.00"_s);
        EXPECT_TRUE(view.clipText.isEmpty() && view.slider == 0);
    }
};

TEST_F(DropStep, WithAutoStartTheFirstDropStartsAtTheBeginning)
{
    option("as");
    addClips({u"one"_s, u"two"_s});
    engine->playlistExtended({});
    waitUntilRunning();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(DropStep, WithAutoStartADropThatAddsNothingLeavesTheNextOneToStart)
{
    option("as");
    engine->playlistExtended({});
    QCoreApplication::processEvents();
    EXPECT_EQ(place(), at(0, 0));
    addClips({u"one"_s});
    engine->playlistExtended({});
    waitUntilRunning();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(DropStep, WithAutoStartADroppedPacketDoesNotDisturbWhatPlays)
{
    option("as");
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    control.calls.clear();
    addClips({u"three"_s});
    engine->playlistExtended({});
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(control.calls.isEmpty());
}

TEST_F(DropStep, WithAutoStartADroppedGroupStartsAtTheBeginningAgain)
{
    option("as");
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    addClips({u"three"_s});
    engine->playlistExtended({.groupDropped = true});
    waitUntilRunning();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(DropStep, WithoutAutoStartAnyDropStopsTheClipAndClearsTimeAndText)
{
    playClips({u"one"_s});
    engine->operations().PollPlayer();
    expectRestAfterDrop(false);
    expectRestAfterDrop(true);
}

TEST_F(DropStep, WithoutAutoStartAClipThatNoTickHasSeenRunningIsStoppedToo)
{
    playClips({u"one"_s});
    module.playback.CachedState = MediaControl::NotLoaded;
    expectRestAfterDrop(false);
}

TEST_F(DropStep, WithoutAutoStartAndWithoutAClipADropChangesNothingElse)
{
    view.setCurrentTime(u"000000,000"_s);
    addClips({u"one"_s});
    engine->playlistExtended({});
    EXPECT_EQ(view.currentTime, u"000000,000"_s);
    EXPECT_TRUE(control.calls.isEmpty());
}

/// The last clip has ended and the list rests.
class DropAfterTheEnd : public DropStep
{
protected:
    void SetUp() override
    {
        turnOn({"as", "agnc", "agnp"});
        addClips({u"one"_s});
        play(1, 1);
        endClip();
        ASSERT_EQ(view.listIndex, -1);
    }

    void dropAt(Int16 packet, Int16 clip)
    {
        engine->playlistExtended({.firstPacket = packet, .firstClip = clip});
    }
};

TEST_F(DropAfterTheEnd, StartsWhatWasDropped)
{
    addClips({u"two"_s, u"three"_s});
    dropAt(2, 1);
    EXPECT_EQ(runningFile(), path(u"two.avi"_s));
    EXPECT_EQ(place(), at(2, 1));
}

TEST_F(DropAfterTheEnd, OfALessonStartsWhatWasDroppedToo)
{
    addBrakes({u"5"_s, u"12"_s});
    control.duration = 40;
    play(2, 2);
    tickAt(12.3);
    ASSERT_EQ(view.listIndex, -1);
    addClips({u"two"_s});
    dropAt(3, 1);
    EXPECT_EQ(runningFile(), path(u"two.avi"_s));
}

TEST_F(DropAfterTheEnd, DoesNotDisturbWhatPlaysAgain)
{
    play(1, 1);
    addClips({u"two"_s});
    dropAt(2, 1);
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(runningFile(), path(u"one.avi"_s));
}

TEST_F(DropAfterTheEnd, StartsNothingWhereNothingThatPlaysWasDropped)
{
    dropAt(0, 0);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
}

TEST_F(DropAfterTheEnd, StartsNothingWithoutTheOption)
{
    option("as", u"0"_s);
    addClips({u"two"_s});
    dropAt(2, 1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(DropStep, WithAutoStartAClipThatWasOnlyStoppedStaysCurrent)
{
    option("as");
    playClips({u"one"_s});
    engine->pressStop();
    addClips({u"two"_s});
    engine->playlistExtended({.firstPacket = 2, .firstClip = 1});
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
}

TEST_F(DropStep, AFileThatIsAskedForReplacesThePlaylistAndPlaysWithoutTheOption)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    const QString wanted = file(u"wanted.avi"_s);
    engine->openAndPlay(wanted);
    EXPECT_EQ(runningFile(), wanted);
    EXPECT_EQ(module.playlist.entryCount(), 1);
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
}

} // namespace
} // namespace orvanta::test
