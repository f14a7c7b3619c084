#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class Tick : public EngineTest
{
protected:
    void playAt(double seconds)
    {
        addClips({u"one"_s});
        play(1, 1);
        control.playTo(seconds);
    }
};

TEST_F(Tick, ShowsPositionLengthAndSliderOfARunningClip)
{
    control.duration = 40.126;
    playAt(10.0315);
    engine->tick();
    EXPECT_EQ(view.currentTime, formatPicture(10.0315, kPositionPicture));
    EXPECT_EQ(view.clipLength, formatPicture(40.126, kDurationPicture));
    EXPECT_EQ(view.slider, 25);
    EXPECT_EQ(module.SliderValue, 25);
}

TEST_F(Tick, LeavesLabelAndSliderAloneWhileTheClipStandsOrTheUserHoldsTheSlider)
{
    playAt(10);
    view.currentTime = u"as it was"_s;
    for (const bool held : {true, false}) {
        view.sliderHeld = held;
        control.forceState(held ? MediaControl::Running : MediaControl::Paused);
        engine->tick();
        EXPECT_EQ(view.currentTime, u"as it was") << held;
        EXPECT_EQ(view.slider, -1) << held;
    }
}

TEST_F(Tick, AClipOfLengthZeroLeavesTheSliderWhereItIs)
{
    control.duration = 0;
    playAt(0);
    view.slider = 33;
    engine->tick();
    EXPECT_EQ(view.slider, 33);
    EXPECT_EQ(view.currentTime, formatPicture(0, kPositionPicture));
}

TEST_F(Tick, APositionFarPastTheLengthLeavesTheSliderWhereItIs)
{
    playAt(1);
    video.mirror().VideoPosition = u"1000000"_s;
    view.slider = 33;
    engine->tick();
    EXPECT_EQ(view.slider, 33);
}

TEST_F(Tick, APositionThatIsNoNumberIsPassedOver)
{
    option("si");
    playAt(1);
    video.mirror().VideoPosition = u"soon"_s;
    module.tray.TrayRestoreRequest = true;
    engine->tick();
    EXPECT_EQ(view.shown, 1); // the later steps have run
}

TEST_F(Tick, TheVideoWindowFollowsTheMainWindow)
{
    engine->tick();
    EXPECT_TRUE(video.windowShown);
    view.windowNormal = false;
    engine->tick();
    EXPECT_FALSE(video.windowShown);
    view.windowNormal = true;
    engine->tick();
    EXPECT_TRUE(video.windowShown);
    engine->tick();
    EXPECT_EQ(video.showCalls, 3);
}

TEST_F(Tick, AVolumeSetInTheVideoWindowMovesTheSliderAndReachesTheControl)
{
    struct Row
    {
        int set, shown, control; // off the scale is brought back onto it
    };
    for (const Row& row : {Row{50, 50, -1000}, Row{105, 100, 0}}) {
        video.mirror().VideoVolume = row.set;
        engine->tick();
        EXPECT_EQ(view.volume, row.shown) << row.set;
        EXPECT_EQ(video.mirror().VideoVolume, row.shown) << row.set;
        EXPECT_EQ(control.Volume(), row.control) << row.set;
        EXPECT_EQ(home.value("save", "volume"), QString::number(row.control)) << row.set;
    }
}

TEST_F(Tick, ABookmarkSetInTheVideoWindowIsStoredUnderTheClipsText)
{
    playAt(7.25);
    video.mirror().VideoBookmark = u"7.2"_s;
    engine->tick();
    EXPECT_EQ(home.value("pos", "one"), u"7.25");
    EXPECT_EQ(view.bookmarkSigns, 1);
    EXPECT_EQ(video.mirror().VideoBookmark, u"7.25");
    EXPECT_EQ(module.playback.CachedBookmark, u"7.25");
    engine->tick();
    EXPECT_EQ(view.bookmarkSigns, 1);
}

TEST_F(Tick, DoesNotReEnterItself)
{
    control.duration = 40;
    playBrakes({u"0"_s, u"5"_s, u"10"_s});
    control.playTo(5.2);
    int nested = 0;
    QTimer::singleShot(0, &control, [&] { // inside the brake wait
        option("nc");
        queue({path(u"lesson.avi"_s)});
        engine->tick();
        nested = view.shown;
    });
    engine->tick();
    EXPECT_EQ(nested, 0);
    EXPECT_EQ(view.shown, 1); // the outer tick has served the queue
}

TEST_F(Tick, WithoutAMainWindowDoesNothing)
{
    PlaybackEngine lonely(module, control, video);
    lonely.tick();
    EXPECT_EQ(video.showCalls, 0);
}

TEST_F(Tick, AnEndQueuesAnExtraTickAtOnce)
{
    option("agnc");
    playClips({u"one"_s, u"two"_s});
    control.reachEnd();
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.FileName() == path(u"two.avi"_s); }));
}

TEST_F(Tick, NextAndPreviousAskedForWithoutAPlaylistRaiseNothingAndDoNotHinderTheClose)
{
    engine->nextChecked();
    engine->previousChecked();
    EXPECT_EQ(loads(), 0);
    engine->closeProgram();
    EXPECT_EQ(view.unloaded, 1);
}

class TrayRequestsInTheTick : public EngineTest
{
protected:
    TrayRequestsInTheTick()
    {
        option("si");
        addClips({u"one"_s, u"two"_s});
    }

    void tickWith(Flag16& request)
    {
        request = true;
        engine->tick();
    }

    void playAndPoll(Int16 q)
    {
        play(1, q);
        engine->tick();
    }
};

TEST_F(TrayRequestsInTheTick, StayPendingUntilTheOptionIsTurnedOn)
{
    option("si", u"0"_s);
    playAndPoll(1);
    tickWith(module.tray.TrayPauseRequest);
    EXPECT_TRUE(module.tray.TrayPauseRequest);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    option("si");
    engine->tick();
    EXPECT_FALSE(module.tray.TrayPauseRequest);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
}

TEST_F(TrayRequestsInTheTick, RestoreShowsTheMainWindowAndBringsItToTheFront)
{
    tickWith(module.tray.TrayRestoreRequest);
    EXPECT_EQ(view.shown, 1);
    EXPECT_EQ(view.timer3Enabled, 1);
    EXPECT_FALSE(module.tray.TrayRestoreRequest);
}

TEST_F(TrayRequestsInTheTick, PausePlayAndStopPressTheButtons)
{
    playAndPoll(1);
    tickWith(module.tray.TrayPauseRequest);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    tickWith(module.tray.TrayPlayRequest);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    tickWith(module.tray.TrayStopRequest);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(view.currentTime, u"0.00");
}

TEST_F(TrayRequestsInTheTick, RaisedTogetherAreServedInTheTicksOrder)
{
    playAndPoll(1);
    control.calls.clear();
    module.tray.TrayStopRequest = true;
    module.tray.TrayPlayRequest = true;
    tickWith(module.tray.TrayPauseRequest);
    EXPECT_EQ(control.calls, (QStringList{u"Pause"_s, u"Run"_s, u"Stop"_s}));
}

TEST_F(TrayRequestsInTheTick, PauseOfAPausedClipLeavesNoWrongLooks)
{
    playAndPoll(1);
    tickWith(module.tray.TrayPauseRequest);
    engine->tick();
    const TransportLooks paused = view.looks;
    tickWith(module.tray.TrayPauseRequest);
    engine->tick();
    EXPECT_EQ(view.looks, paused);
    EXPECT_TRUE(paused.playEnabled);
    EXPECT_FALSE(paused.playSwapped);
}

TEST_F(TrayRequestsInTheTick, NextRunsTheAdvance)
{
    option("agnc");
    playAndPoll(1);
    tickWith(module.tray.TrayNextRequest);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
}

TEST_F(TrayRequestsInTheTick, NextEndsTheTrayStep)
{
    option("agnc");
    playAndPoll(1);
    module.tray.TrayNextRequest = true;
    tickWith(module.tray.TrayPauseRequest);
    EXPECT_TRUE(module.tray.TrayPauseRequest);
}

TEST_F(TrayRequestsInTheTick, PreviousGoesOneClipBack)
{
    playAndPoll(2);
    tickWith(module.tray.TrayPreviousRequest);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.FileName(), path(u"one.avi"_s));
}

TEST_F(TrayRequestsInTheTick, PreviousAtTheVeryFirstClipStartsItAgain)
{
    playAndPoll(1);
    tickWith(module.tray.TrayPreviousRequest);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(loads(), 2);
}

TEST_F(TrayRequestsInTheTick, NextAndPreviousWithoutAPlaylistStartNothing)
{
    turnOn({"agnc", "agnp"});
    emptyPlaylist();
    tickWith(module.tray.TrayPreviousRequest);
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(packet(), 0);
    tickWith(module.tray.TrayNextRequest);
    EXPECT_EQ(clip(), 0);
}

TEST_F(TrayRequestsInTheTick, CloseEndsTheProgramWhateverTheOptionSays)
{
    option("nc");
    module.tray.TrayCloseRequest = true;
    QCoreApplication::processEvents();
    EXPECT_EQ(view.unloaded, 0); // not before the next tick
    engine->tick();
    EXPECT_TRUE(engine->isClosing());
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Tick, ABookmarkSetInTheVideoWindowIsStoredAlsoWhenAnotherLineFollowsAtOnce)
{
    playClips({u"one"_s, u"two"_s});
    control.playTo(4);
    engine->tick();
    video.mirror().VideoBookmark = u"4"_s;
    engine->lineStep(1);
    EXPECT_EQ(home.value("pos", "one"), u"4");
}

TEST_F(Tick, ABookmarkWithoutACurrentClipIsNotStoredButStillShown)
{
    module.playlist.CurrentPacket = 5;
    video.mirror().VideoBookmark = u"3"_s;
    engine->tick();
    EXPECT_EQ(view.bookmarkSigns, 1);
    EXPECT_EQ(ReadIni(u"pos"_s, QString(), module.IniPath), QString());
}

TEST_F(Tick, AStepOutsideSixteenBitsIsPassedOverAndTheQueueIsServed)
{
    option("si");
    addClips({u"one"_s});
    module.playlist.CurrentPacket = 1;
    module.playlist.CurrentClip = 32767;
    module.tray.TrayNextRequest = true;
    queue({file(u"queued.avi"_s)});
    engine->tick();
    EXPECT_EQ(module.playlist.packet(1).clip(1).Text, u"queued");
}

class GoneWithoutAStop : public Tick
{
protected:
    void expectTheBeginning()
    {
        EXPECT_EQ(view.currentTime, u"0.00");
        EXPECT_EQ(view.slider, 0);
        EXPECT_TRUE(view.looks.playEnabled && !view.looks.pauseEnabled);
    }
};

TEST_F(GoneWithoutAStop, AClipLeavesTimeSliderAndLooksAsAStopDoes)
{
    playAt(7);
    engine->tick();
    const LogCapture log("orvanta.playback");
    control.setFileName({}); // as closing the video window does
    engine->tick();
    engine->tick();
    expectTheBeginning();
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(GoneWithoutAStop, AClipThatWasPausedDoesSoToo)
{
    playAt(7);
    engine->tick();
    control.Pause();
    engine->tick();
    control.setFileName({});
    engine->tick();
    expectTheBeginning();
}

TEST_F(GoneWithoutAStop, AClipThatEndsUnderTheHandOnTheSliderDoesSoOnceLetGo)
{
    playAt(7);
    engine->tick();
    view.sliderHeld = true;
    engine->sliderMoved(60);
    control.reachEnd();
    engine->tick();
    EXPECT_NE(view.currentTime, u"0.00"); // the preview stays in the hand
    engine->sliderCommitted();
    view.sliderHeld = false;
    engine->tick();
    expectTheBeginning();
}

} // namespace orvanta::test
