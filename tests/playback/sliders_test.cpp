#include "tests/playback/engine_fixture.h"

#include <cmath>
#include <limits>

namespace orvanta::test {

class PositionSliderOfTheWindow : public EngineTest
{
protected:
    PositionSliderOfTheWindow() { control.duration = 40; }

    void playClipAt(double seconds)
    {
        addClips({u"one"_s});
        play(1, 1);
        control.playTo(seconds);
        engine->tick();
        control.calls.clear();
    }

    void playBrakeAt(double seconds)
    {
        addBrakes({u"5"_s, u"12"_s, u"20"_s});
        play(1, 1);
        control.playTo(seconds);
        engine->tick();
        control.calls.clear();
    }
};

TEST_F(PositionSliderOfTheWindow, PreviewsTheTimeWithoutSeeking)
{
    playClipAt(10);
    engine->sliderMoved(62.5);
    EXPECT_EQ(view.currentTime, formatPicture(25, kPositionPicture));
    EXPECT_EQ(module.SliderValue, 62);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(PositionSliderOfTheWindow, SeeksOnceOnCommit)
{
    playClipAt(10);
    engine->sliderMoved(40);
    engine->sliderMoved(75);
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 30);
    EXPECT_EQ(countOf(u"Pause"_s), 1);
    EXPECT_EQ(view.currentTime, formatPicture(30, kPositionPicture));
}

TEST_F(PositionSliderOfTheWindow, LetGoSeeksUnlessTheClipIsPausedOrTheHandleUnmoved)
{
    struct Row
    {
        const char* says;
        MediaControl::State state;
        double handle, shown, position;
    };
    for (const Row& row : {Row{"paused", MediaControl::Paused, 75, 10, 10},
                           Row{"at the exact position", MediaControl::Running, 25, 10, 10},
                           Row{"stopped", MediaControl::Stopped, 75, 30, 30}}) {
        emptyPlaylist();
        playClipAt(10);
        control.forceState(row.state);
        engine->sliderMoved(row.handle);
        engine->sliderCommitted();
        EXPECT_EQ(view.currentTime, formatPicture(row.shown, kPositionPicture)) << row.says;
        EXPECT_EQ(control.CurrentPosition(), row.position) << row.says;
        EXPECT_EQ(control.calls.isEmpty(), row.position == 10) << row.says;
    }
}

TEST_F(PositionSliderOfTheWindow, LetGoOfAPausedClipShowsWhereThePlayerIs)
{
    playClipAt(10);
    control.Pause();
    engine->sliderMoved(75);
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 10);
    EXPECT_EQ(view.currentTime, formatPicture(10, kPositionPicture));
    EXPECT_EQ(view.slider, 25);
    EXPECT_EQ(module.SliderValue, 25);
}

TEST_F(PositionSliderOfTheWindow, LetGoOfAClipThatRefusesSeeksShowsWhereThePlayerIs)
{
    for (const MediaControl::State state : {MediaControl::Stopped, MediaControl::Running}) {
        emptyPlaylist();
        playClipAt(10);
        engine->tick();
        control.failSeeks = true;
        control.forceState(state);
        engine->sliderMoved(75);
        engine->sliderCommitted();
        EXPECT_EQ(view.currentTime, formatPicture(10, kPositionPicture)) << state;
        EXPECT_EQ(view.slider, 25) << state;
        control.failSeeks = false;
    }
}

TEST_F(PositionSliderOfTheWindow, LetGoOfAClipOfUnknownLengthSeeksNowhere)
{
    playClipAt(10);
    engine->tick();
    control.duration = 0;
    engine->sliderMoved(75);
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 10);
    EXPECT_EQ(view.currentTime, formatPicture(10, kPositionPicture));
    EXPECT_EQ(view.slider, 0);
}

TEST_F(PositionSliderOfTheWindow, LetGoAfterAnotherClipHasBegunSeeksNothing)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    control.playTo(10);
    engine->sliderMoved(75);
    play(1, 2);
    control.playTo(2);
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 2);
    engine->tick();
    engine->sliderMoved(50); // the next drag is one of this clip
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 20);
}

TEST_F(PositionSliderOfTheWindow, AtThePositionOfAStoppedClipIsSetBack)
{
    playClipAt(10);
    control.Stop();
    engine->tick();
    module.SliderValue = 0;
    view.slider = 3; // where the user let go; its whole percentage is 0
    engine->sliderCommitted();
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(countOf(u"seek 0"_s), 0);
}

TEST_F(PositionSliderOfTheWindow, AValueThatIsNoNumberLeavesLabelAndSlider)
{
    playClipAt(10);
    const QString shown = view.currentTime;
    const Int16 value = module.SliderValue;
    engine->sliderMoved(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(view.currentTime, shown);
    EXPECT_EQ(module.SliderValue, value);
}

TEST_F(PositionSliderOfTheWindow, InABrakePacketPreviewsAndSeeksWithinTheBrake)
{
    playBrakeAt(6);
    engine->sliderMoved(50);
    EXPECT_EQ(view.currentTime, formatPicture(8.5, kPositionPicture));
    engine->sliderCommitted();
    EXPECT_EQ(control.CurrentPosition(), 8.5);
    EXPECT_EQ(clip(), 1);
}

TEST_F(PositionSliderOfTheWindow, IsResetToZeroByAStop)
{
    playClipAt(10);
    engine->pressStop();
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(module.SliderValue, 0);
}

class SeekByKey : public PositionSliderOfTheWindow
{};

TEST_F(SeekByKey, GoesToThePosition)
{
    playClipAt(10);
    engine->seekTo(30);
    EXPECT_EQ(control.CurrentPosition(), 30);
    EXPECT_EQ(engine->operations().GetPlayerPosition(), u"30");
}

TEST_F(SeekByKey, BeforeTheBeginningGoesToTheBeginning)
{
    playClipAt(10);
    engine->seekTo(-50);
    EXPECT_EQ(control.CurrentPosition(), 0);
}

TEST_F(SeekByKey, MakesTheBrakeThereCurrentWithoutASecondSeek)
{
    struct Row
    {
        const char* says;
        double seconds;
        int brake, line;
        QString text;
    };
    playBrakeAt(6);
    for (const Row& row : {Row{"within the brake", 11, 1, 2, u"brake 1"_s},
                           Row{"outside of it", 15, 2, 3, u"brake 2"_s},
                           Row{"back out of the brake", 7, 1, 2, u"brake 1"_s},
                           Row{"before the first: the packet's header", 2, 0, 1, {}}}) {
        engine->seekTo(row.seconds);
        EXPECT_EQ(clip(), row.brake) << row.says;
        EXPECT_EQ(view.clipText, row.text) << row.says;
        EXPECT_EQ(view.listIndex, row.line) << row.says;
        EXPECT_EQ(control.CurrentPosition(), row.seconds) << row.says;
    }
    EXPECT_EQ(countOf(u"seek 12"_s), 0);
}

TEST_F(SeekByKey, IsFollowedByTheNextTickWithoutJumpingAgain)
{
    playBrakeAt(6);
    engine->seekTo(15);
    engine->tick();
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(control.CurrentPosition(), 15);
}

class Volume : public EngineTest
{};

TEST_F(Volume, MovedByTheUserReachesControlWindowCacheAndSettings)
{
    engine->volumeMoved(99);
    EXPECT_EQ(control.Volume(), -1);
    EXPECT_EQ(video.mirror().VideoVolume, 99);
    EXPECT_EQ(module.playback.CachedVolume, 99);
    EXPECT_EQ(home.value("save", "volume"), u"-0.008");
    engine->tick();
    EXPECT_EQ(view.volume, -1); // no change to take back
}

TEST_F(Volume, StoredIsAppliedAndWritesNothing)
{
    WriteIni(u"save"_s, u"volume"_s, u"-1000.0"_s, module.IniPath);
    const QByteArray before = home.bytes(u"orvanta.ini"_s);
    EXPECT_EQ(engine->applyStoredVolume(), 50);
    EXPECT_EQ(control.Volume(), -1000);
    EXPECT_EQ(video.mirror().VideoVolume, 50);
    EXPECT_EQ(home.bytes(u"orvanta.ini"_s), before);
}

TEST_F(Volume, AbsentIsFullVolume)
{
    EXPECT_EQ(engine->applyStoredVolume(), 100);
    EXPECT_EQ(control.Volume(), 0);
}

TEST_F(Volume, StoredThatIsNoNumberIsFullForSliderAndSound)
{
    for (const QString& stored : {u"loud"_s, u"1e9"_s}) {
        WriteIni(u"save"_s, u"volume"_s, stored, module.IniPath);
        control.setVolume(-5000);
        EXPECT_EQ(engine->applyStoredVolume(), 100);
        EXPECT_EQ(control.Volume(), 0);
        EXPECT_EQ(video.mirror().VideoVolume, 100);
    }
}

TEST_F(Volume, BalanceChangesOnlyItsStoredValue)
{
    engine->balanceMoved(80);
    EXPECT_EQ(home.value("save", "balance"), u"80");
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_EQ(engine->storedBalance(), 80);
}

TEST_F(Volume, AbsentBalanceIsTheCentre)
{
    EXPECT_EQ(engine->storedBalance(), 50);
}

} // namespace orvanta::test
