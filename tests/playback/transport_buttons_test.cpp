#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

constexpr TransportLooks kIdleLooks = {};
constexpr TransportLooks kPlayingLooks = {
    .playEnabled = false, .pauseEnabled = true, .playSwapped = true, .pauseSwapped = true};

class Transport : public EngineTest
{
protected:
    void playAt7()
    {
        playClips({u"one"_s});
        control.playTo(7);
        engine->tick();
    }

    void playAndPoll()
    {
        addClips({u"one"_s});
        play(1, 1);
        engine->tick();
    }
};

TEST_F(Transport, IsIdleAtFirstAndPlayIsLitOnceThereIsSomethingToPlay)
{
    engine->tick();
    EXPECT_FALSE(view.looks.playEnabled || view.looks.pauseEnabled);
    EXPECT_TRUE(view.looks.playSwapped); // the picture of a button that is off
    addClips({u"one"_s});
    engine->tick();
    EXPECT_EQ(view.looks, kIdleLooks);
}

TEST_F(Transport, PlayWithNothingOpenDoesNothing)
{
    engine->play();
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Transport, PlayWithNothingLoadedBeginsWithTheLineUnderTheCursorElseWithTheFirstChecked)
{
    struct Row
    {
        const char* says;
        int cursorLine;
        std::vector<std::size_t> unchecked;
        std::pair<int, int> begins;
    };
    const Row rows[] = {
        {"no line", -1, {}, {1, 1}},
        {"no line, the first unchecked", -1, {2}, {1, 2}},
        {"no line, all unchecked", -1, {1, 2, 3, 4, 5}, {1, 1}},
        {"a clip", 3, {}, {1, 2}},
        {"an unchecked clip", 3, {3}, {1, 2}},
        {"a packet's own line", 4, {}, {2, 1}},
    };
    for (const Row& row : rows) {
        emptyPlaylist();
        addClips({u"one"_s, u"two"_s});
        addClips({u"three"_s});
        for (const std::size_t line : row.unchecked) {
            view.checked[line] = false;
        }
        view.listIndex = row.cursorLine;
        engine->play();
        EXPECT_EQ(place(), row.begins) << row.says;
        waitUntilRunning();
        control.setFileName({});
    }
}

TEST_F(Transport, PlayAfterTheLastClipBeginsAgain)
{
    turnOn({"agnc", "agnp"});
    playClips({u"one"_s, u"two"_s});
    endClip();
    endClip();
    engine->tick();
    ASSERT_TRUE(view.looks.playEnabled);
    engine->play();
    EXPECT_EQ(runningFile(), path(u"one.avi"_s));
}

TEST_F(Transport, PlayOfAPausedClipGoesOn)
{
    playAt7();
    engine->pressPause();
    engine->play();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(loads(), 1);
}

TEST_F(Transport, IsIgnoredWhileNoClipIsLoaded)
{
    engine->pressPlay();
    engine->pressPause();
    engine->pressStop();
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_EQ(engine->transport(), kIdleLooks);
    EXPECT_EQ(view.currentTime, QString());
}

TEST_F(Transport, AfterPauseOnlyPlayIsEnabledAndAfterPlayOnlyPause)
{
    playAndPoll();
    engine->pressPause();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_EQ(view.looks, kIdleLooks);
    engine->tick();
    engine->pressPlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(view.looks, kPlayingLooks);
}

TEST_F(Transport, ASecondPauseExchangesThePicturesAgain)
{
    playAndPoll();
    engine->pressPause();
    engine->pressPause();
    EXPECT_TRUE(view.looks.playEnabled);
    EXPECT_TRUE(view.looks.playSwapped);
    EXPECT_TRUE(view.looks.pauseSwapped);
}

TEST_F(Transport, StopInAClipListPacketStops)
{
    playAndPoll();
    control.playTo(5);
    engine->tick();
    engine->pressStop();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(view.looks, kIdleLooks);
}

TEST_F(Transport, StopOfAPausedClipKeepsThePairedLooks)
{
    playAndPoll();
    engine->pressPause();
    engine->pressStop();
    EXPECT_EQ(view.looks, kIdleLooks);
}

TEST_F(Transport, StopInABrakePacketWaitsAtTheCurrentBrake)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12"_s}, 2);
    control.playTo(12);
    engine->tick();
    control.playTo(14);
    engine->pressStop();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_EQ(control.CurrentPosition(), 12);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.looks, kIdleLooks);
}

TEST_F(Transport, StopWithoutABrakeToGoBackToOnlyPauses)
{
    addBrakes({u"5"_s, u"soon"_s});
    for (const int brake : {0, 2}) { // before the first, at one whose time is no number
        play(1, 1);
        engine->tick();
        module.playlist.CurrentClip = brake;
        control.playTo(6);
        engine->pressStop();
        EXPECT_EQ(control.CurrentState(), MediaControl::Paused) << brake;
        EXPECT_EQ(control.CurrentPosition(), 6) << brake;
    }
}

TEST_F(Transport, TheTickSetsTheLooksFromTheState)
{
    playAndPoll();
    control.Pause(); // by a key, the tray or the full-screen view
    engine->tick();
    EXPECT_EQ(view.looks, kIdleLooks);
    control.Run();
    engine->tick();
    EXPECT_EQ(view.looks, kPlayingLooks);
    control.Stop();
    engine->tick();
    EXPECT_EQ(view.looks, kIdleLooks);
}

TEST_F(Transport, TheTickLeavesTheLooksAloneWhileAFileIsBeingOpened)
{
    control.autoOpen = false;
    addClips({u"one"_s});
    engine->ListClick(1, 1);
    video.mirror().VideoState = MediaControl::Stopped;
    engine->tick();
    EXPECT_EQ(view.looks, kPlayingLooks);
}

TEST_F(Transport, AStopOfTheUserIsLoggedOnce)
{
    playAndPoll();
    const LogCapture log("orvanta.playback");
    engine->pressStop();
    engine->tick();
    engine->pressStop();
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(Transport, AStopByKeyShowsTheBeginningAndIsLogged)
{
    playAt7();
    ASSERT_NE(view.slider, 0);
    const LogCapture log("orvanta.playback");
    engine->operations().StopIfRunning();
    video.mirror().VideoState = MediaControl::Stopped;
    engine->tick();
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(Transport, APauseKeepsTheTimeThatIsShown)
{
    playAt7();
    const int before = view.slider;
    engine->pressPause();
    engine->tick();
    EXPECT_EQ(view.slider, before);
    EXPECT_EQ(view.currentTime, u"7.000");
}

TEST_F(Transport, TheEndOfTheLastClipLeavesTheIdleLooksAndNoTimeBehind)
{
    playAt7();
    endClip();
    engine->tick();
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(view.looks, kIdleLooks);
}

class Opening : public EngineTest
{};

TEST_F(Opening, SetsTheCursorAndRebuildsTheTree)
{
    addClips({u"one"_s});
    addClips({u"two"_s});
    play(2, 1);
    module.playlist.OpenedFromExplorer = true;
    const int rebuilt = view.rebuilt;
    engine->playlistReplaced();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(view.rebuilt, rebuilt + 1);
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
    EXPECT_EQ(loads(), 1);
}

TEST_F(Opening, WithAutoStartPlaysTheFirstClip)
{
    option("as");
    addClips({u"one"_s});
    engine->playlistReplaced();
    EXPECT_EQ(runningFile(), path(u"one.avi"_s));
}

TEST_F(Opening, IsLogged)
{
    addClips({u"one"_s, u"two"_s});
    const LogCapture log("orvanta.playlist");
    engine->playlistReplaced();
    EXPECT_EQ(log.lines(), QStringList(u"loaded 1 packets, 2 entries"_s));
}

} // namespace orvanta::test
