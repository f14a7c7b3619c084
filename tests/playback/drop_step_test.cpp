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
        engine->playlistExtended(groupDropped);
        EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
        EXPECT_EQ(view.currentTime, u"0.00"_s);
        EXPECT_TRUE(view.clipText.isEmpty() && view.slider == 0);
    }
};

TEST_F(DropStep, WithAutoStartTheFirstDropStartsAtTheBeginning)
{
    option("as");
    addClips({u"one"_s, u"two"_s});
    engine->playlistExtended(false);
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
    engine->playlistExtended(false);
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
    engine->playlistExtended(true);
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
    engine->playlistExtended(false);
    EXPECT_EQ(view.currentTime, u"000000,000"_s);
    EXPECT_TRUE(control.calls.isEmpty());
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
