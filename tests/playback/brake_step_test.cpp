#include "tests/playback/brakes_fixture.h"

#include <QElapsedTimer>

#include <ctime>

namespace orvanta::test {

TEST_F(Brakes, ReachedByPlayingBecomesCurrentAndIsShown)
{
    playLesson();
    tickAt(12.1);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(view.clipText, u"brake 2");
    EXPECT_EQ(view.listIndex, 3);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(Brakes, ReachedByPlayingAreRunThroughWithoutMovingThePlayer)
{
    playLesson();
    control.playTo(12.1);
    control.calls.clear();
    tickAt(12.1);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Brakes, ReachedByPlayingHalfASecondAgoOrMoreAreGoneBackTo)
{
    playLesson();
    tickAt(12.6);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(control.CurrentPosition(), 12);
}

TEST_F(Brakes, ReachedByPlayingBecomeCurrentWithThePositionThatPassesThemNotWithTheTimer)
{
    playLesson();
    control.playTo(12);
    QCoreApplication::processEvents();
    EXPECT_EQ(clip(), 1);
    control.playTo(12.04);
    QCoreApplication::processEvents();
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(view.clipText, u"brake 2");
    control.playTo(20.04);
    QCoreApplication::processEvents();
    EXPECT_EQ(clip(), 3);
}

TEST_F(Brakes, AreNotFollowedByThePositionWhileTheUserHoldsTheSlider)
{
    playLesson();
    view.sliderHeld = true;
    control.playTo(12.04);
    QCoreApplication::processEvents();
    EXPECT_EQ(clip(), 1);
}

TEST_F(Brakes, StartedByHandJustBehindTheirTimeAreGoneBackTo)
{
    playLesson();
    control.playTo(5.3);
    engine->ListClick(1, 1);
    EXPECT_EQ(control.CurrentPosition(), 5);
}

TEST_F(Brakes, AtTheExactTimeTheBrakeIsNotYetPassed)
{
    playLesson();
    tickAt(12);
    EXPECT_EQ(clip(), 1);
}

class UncheckedBrakes : public Brakes
{
protected:
    /// Plays four brakes at 5, 12, 20 and 30 s; those at these lines are unchecked.
    void playWithout(std::initializer_list<std::size_t> lines, Int16 brake = 1)
    {
        addBrakes({u"5"_s, u"12"_s, u"20"_s, u"30"_s});
        addClips({u"next"_s});
        for (const std::size_t line : lines) {
            view.checked[line] = false;
        }
        play(1, brake);
    }
};

TEST_F(UncheckedBrakes, ArePassedOverToTheNextCheckedOneByOneSeek)
{
    playWithout({3});
    tickAt(12.1);
    EXPECT_EQ(place(), at(1, 3));
    EXPECT_EQ(view.clipText, u"brake 3");
    EXPECT_EQ(control.CurrentPosition(), 20);
    EXPECT_FALSE(view.checked[3]);
}

TEST_F(UncheckedBrakes, WithoutACheckedOneBehindThemEndThePacket)
{
    playWithout({3, 4, 5});
    tickAt(12.1);
    EXPECT_EQ(place(), at(2, 1));
    EXPECT_EQ(runningFile(), path(u"next.avi"_s));
}

TEST_F(UncheckedBrakes, DoNotIncludeTheEndMarkWhichIsReachedAndKeepsItsMark)
{
    playWithout({5}, 3);
    tickAt(30.1);
    EXPECT_EQ(place(), at(1, 4));
    EXPECT_FALSE(view.checked[5]);
    view.enableTimer2(-1);
    tickAt(30.2);
    EXPECT_EQ(packet(), 2);
}

TEST_F(UncheckedBrakes, AreAllThoseOfAPacketWhoseHeaderIsUnchecked)
{
    playWithout({1});
    tickAt(12.1);
    EXPECT_EQ(place(), at(2, 1));
}

TEST_F(UncheckedBrakes, AreCheckedByAStartByHand)
{
    playWithout({3});
    engine->ListClick(1, 2);
    EXPECT_TRUE(view.checked[3]);
}

TEST_F(Brakes, BeforeTheFirstBrakeNoneIsCurrent)
{
    playLesson();
    module.playlist.CurrentClip = 0;
    tickAt(4);
    EXPECT_EQ(clip(), 0);
    tickAt(5.1);
    EXPECT_EQ(clip(), 1);
}

TEST_F(Brakes, TheLastBrakeMovesOnToTheNextPacket)
{
    playLesson();
    addClips({u"next"_s});
    tickAt(20.1);
    tickAt(20.1);
    EXPECT_EQ(place(), at(1, 3));
    tickAt(20.3);
    EXPECT_EQ(place(), at(2, 1));
    EXPECT_EQ(runningFile(), path(u"next.avi"_s));
}

TEST_F(Brakes, TheLastBrakeMovesOnWhateverTheAdvanceOptionsSay)
{
    option("agnc", u"0"_s);
    option("agnp", u"0"_s);
    playLesson(3);
    addClips({u"next"_s});
    tickAt(20.3);
    EXPECT_EQ(packet(), 2);
}

TEST_F(Brakes, TheLastBrakePassesOverUncheckedPackets)
{
    playLesson(3);
    addClips({u"two"_s});
    addClips({u"three"_s});
    view.checked[5] = false; // header of packet 2
    tickAt(20.3);
    EXPECT_EQ(packet(), 3);
}

TEST_F(Brakes, TheLastBrakeOfTheLastPacketStops)
{
    playLesson(3);
    const LogCapture log("orvanta.playback");
    tickAt(20.3);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(Brakes, AfterTheFinalStopPlayBeginsAgain)
{
    playLesson(3);
    tickAt(20.3);
    EXPECT_EQ(place(), at(1, 0));
    engine->tick();
    engine->pressPlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    tickAt(5.1);
    EXPECT_EQ(clip(), 1);
}

TEST_F(Brakes, TheEndOfTheClipDoesNotAdvance)
{
    turnOn({"agnc", "agnp"});
    playLesson();
    addClips({u"next"_s});
    endClip();
    engine->tick();
    EXPECT_EQ(packet(), 1);
    EXPECT_EQ(loads(), 1);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
}

/// A lesson whose last brake is at this time of a clip of 40 s, and a packet behind it.
class LastBrakeAtTheEnd : public Brakes, public testing::WithParamInterface<double>
{
protected:
    void playLastPart(Int16 brake)
    {
        addBrakes({u"5"_s, u"12"_s, decimalText(GetParam())});
        play(1, brake);
    }
};

TEST_P(LastBrakeAtTheEnd, IsPassedByTheEndOfTheClip)
{
    playLastPart(2);
    addClips({u"next"_s});
    endClip();
    EXPECT_EQ(packet(), 2);
    EXPECT_EQ(runningFile(), path(u"next.avi"_s));
}

TEST_P(LastBrakeAtTheEnd, StopsWhenNoPacketFollows)
{
    playLastPart(3);
    endClip();
    EXPECT_EQ(place(), at(1, 0));
    engine->tick();
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_EQ(view.currentTime, u"0.00");
}

INSTANTIATE_TEST_SUITE_P(Times, LastBrakeAtTheEnd, testing::Values(39, 39.9, 40, 40.01));

TEST_F(Brakes, TheEndOfTheClipDoesNotPassALastBrakeBehindIt)
{
    addBrakes({u"5"_s, u"40.5"_s});
    addClips({u"next"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(Brakes, AreFollowedOnlyWhileTheMediaOfTheirPacketIsLoaded)
{
    playClips({u"one"_s});
    emptyPlaylist();
    addBrakes({u"5"_s, u"12"_s});
    engine->playlistReplaced(); // without "as" the earlier clip plays on
    tickAt(30);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.FileName(), path(u"one.avi"_s));
    EXPECT_EQ(view.slider, 75); // of the whole clip that plays
}

TEST_F(Brakes, AreNotFollowedWhileAnotherFileIsInThePlayer)
{
    playLesson();
    engine->operations().OpenMedia(file(u"other.avi"_s));
    waitUntilRunning();
    tickAt(30);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.FileName(), path(u"other.avi"_s));
}

TEST_F(Brakes, TheSliderSpansTheCurrentBrakeOrTheTimeBeforeTheFirst)
{
    playLesson(); // 5 to 12
    tickAt(8.5);
    EXPECT_EQ(view.slider, 50);
    module.playlist.CurrentClip = 0;
    tickAt(1);
    EXPECT_EQ(view.slider, 20);
}

TEST_F(Brakes, TheLengthShownIsThatOfTheClip)
{
    playLesson();
    tickAt(8);
    EXPECT_EQ(view.clipLength, formatPicture(40, kDurationPicture));
}

TEST_F(Brakes, ATimeThatIsNoNumberIsPassedOver)
{
    option("si");
    playBrakes({u"soon"_s, u"later"_s});
    module.tray.TrayRestoreRequest = true;
    tickAt(39);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.shown, 1); // the later steps have run
}

TEST_F(Brakes, AJumpToABrakeIsNotOvertakenByThePositionBefore)
{
    playLesson(3);
    control.playTo(20);
    engine->tick();
    engine->ListClick(1, 1);
    engine->tick();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.clipText, u"brake 1");
}

class BrakeWait : public Brakes
{
protected:
    /// Runs a tick that is past brake 2, with this happening inside its wait.
    template <typename Action> void tickWith(Action&& action)
    {
        control.playTo(12.1);
        QTimer::singleShot(0, &control, std::forward<Action>(action));
        engine->tick();
    }
};

TEST_F(BrakeWait, IsLeftWithoutMovingOnWhenTheClipNoLongerRuns)
{
    struct Row
    {
        void (*happens)(ScriptedMediaControl& control);
        MediaControl::State state;
    };
    for (const Row& row : {Row{[](auto& player) { player.Pause(); }, MediaControl::Paused},
                           Row{[](auto& player) { player.Stop(); }, MediaControl::Stopped},
                           Row{[](auto& player) { player.reachEnd(); }, MediaControl::NotLoaded}}) {
        emptyPlaylist();
        playLesson();
        tickWith([&] { row.happens(control); });
        EXPECT_EQ(clip(), 1) << row.state;
        EXPECT_EQ(control.CurrentState(), row.state);
    }
}

TEST_F(BrakeWait, IsLeftWhenTheProgramCloses)
{
    playLesson();
    tickWith([&] { engine->closeProgram(); });
    EXPECT_EQ(view.unloaded, 1);
    EXPECT_EQ(clip(), 1);
}

TEST_F(BrakeWait, IsSupersededByAnotherStart)
{
    playLesson();
    addClips({u"next"_s});
    tickWith([&] { engine->ListClick(2, 1); });
    EXPECT_EQ(place(), at(2, 1));
    EXPECT_EQ(view.clipText, u"next");
}

TEST_F(BrakeWait, IsSupersededByAnotherPlaylistOfTheSameMedia)
{
    playLesson();
    tickWith([&] {
        emptyPlaylist();
        addBrakes({u"5"_s, u"12"_s});
        engine->playlistReplaced();
    });
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(BrakeWait, AfterASeekBackWithinTheSpanDoesNotMoveOn)
{
    playLesson();
    tickWith([&] { engine->seekTo(7); });
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.CurrentPosition(), 7);
}

TEST_F(BrakeWait, IsBoundedWhenThePositionNeverMoves)
{
    playLesson();
    control.playTo(12.1);
    QElapsedTimer timer;
    timer.start();
    engine->tick();
    EXPECT_EQ(clip(), 2);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(BrakeWait, SleepsInsteadOfSpinning)
{
    playLesson();
    control.playTo(12.1);
    const std::clock_t before = std::clock();
    engine->tick();
    const double busySeconds = double(std::clock() - before) / CLOCKS_PER_SEC;
    EXPECT_LT(busySeconds, 0.075); // half of the wait
}

TEST_F(Brakes, AreServedWhenTheirMediaWasLoadedAsAClipOfItsOwn)
{
    playClips({u"lesson"_s});
    emptyPlaylist();
    playBrakes({u"5"_s, u"12"_s, u"20"_s});
    ASSERT_EQ(loads(), 1);
    tickAt(12.1);
    EXPECT_EQ(clip(), 2);
}

TEST_F(Brakes, TheLastBrakePassesOverAPacketWhoseMediaIsMissing)
{
    turnOn({"agnc", "agnp"});
    playLesson(3);
    addMissingClips({u"gone"_s});
    addClips({u"good"_s});
    tickAt(20.1);
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(packet(), 3);
    EXPECT_EQ(control.FileName(), path(u"good.avi"_s));
}

} // namespace orvanta::test
