// What the main window's keys do.
#include "playback/keyboard.h"
#include "tests/playback/engine_fixture.h"
#include "tests/support/plain_screen.h"

namespace orvanta::test {
namespace {

class MainKeys : public EngineTest
{
protected:
    void playLongClip()
    {
        control.duration = 600.0;
        addClips({u"one"_s});
        play(1, 1);
        at(100.0);
    }

    void at(double seconds)
    {
        control.playTo(seconds);
        engine->tick();
    }

    bool type(char16_t character) { return keys.press(mainWindowKey(character).value()); }

    QString savedPosition() { return ReadIni(u"pos"_s, u"one"_s, module.IniPath); }

    PlainScreen screen;
    VideoWindowKeys videoKeys{control, video.mirror(), screen,
                              [this](double seconds) { control.setCurrentPosition(seconds); }};
    MainWindowKeys keys{module, *engine, view, videoKeys};
};

TEST_F(MainKeys, BAndUpperCaseBSeekAMinuteBack)
{
    playLongClip();
    type(u'b');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 40.0);
    at(100.0);
    type(u'B');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 40.0);
}

TEST_F(MainKeys, MSeeksAMinuteForward)
{
    playLongClip();
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 160.0);
}

TEST_F(MainKeys, ASeekOfAPausedClipShowsWhereItHasGone)
{
    playLongClip();
    type(u'p');
    type(u'm');
    EXPECT_EQ(view.currentTime, u"160.000"_s);
    EXPECT_EQ(view.slider, 27);
    keys.seekBy(10000.0);
    EXPECT_EQ(view.currentTime, u"600.000"_s);
    EXPECT_EQ(view.slider, 100);
}

TEST_F(MainKeys, ASeekLeavesTheSliderThatTheUserHolds)
{
    playLongClip();
    view.sliderHeld = true;
    type(u'm');
    EXPECT_EQ(view.currentTime, u"100.000"_s);
    EXPECT_EQ(view.slider, 17);
}

TEST_F(MainKeys, KeysThatComeFasterThanTicksAddUp)
{
    playLongClip();
    keys.seekBy(5.0);
    keys.seekBy(5.0);
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 170.0);
    keys.togglePlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    keys.togglePlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(MainKeys, ASeekBeforeTheBeginningGoesToTheBeginning)
{
    playLongClip();
    at(10.0);
    type(u'b');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 0.0);
}

TEST_F(MainKeys, ARefusedSeekLeavesThePositionAsItIs)
{
    playLongClip();
    control.failSeeks = true;
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(MainKeys, PlusAndMinusMoveTheVolumeSliderByFive)
{
    engine->volumeMoved(50);
    type(u'+');
    EXPECT_EQ(module.playback.CachedVolume, 55);
    EXPECT_EQ(view.volume, 55);
    EXPECT_EQ(ReadIni(u"save"_s, u"volume"_s, module.IniPath), u"-729"_s);
    type(u'-');
    EXPECT_EQ(module.playback.CachedVolume, 50);
}

TEST_F(MainKeys, TheVolumeStaysOnItsScale)
{
    engine->volumeMoved(98);
    type(u'+');
    EXPECT_EQ(module.playback.CachedVolume, 100);
}

TEST_F(MainKeys, KStoresThePositionUnderTheClipsTextAndShowsTheSign)
{
    playLongClip();
    type(u'k');
    EXPECT_EQ(savedPosition(), u"100"_s);
    EXPECT_EQ(view.bookmarkSigns, 1);
    EXPECT_EQ(video.mirror().VideoBookmark, u"100"_s);
}

TEST_F(MainKeys, KWithoutAClipDoesNothing)
{
    type(u'k');
    EXPECT_EQ(view.bookmarkSigns, 0);
}

TEST_F(MainKeys, LGoesToTheSavedPositionAndTheClipRunsOn)
{
    playLongClip();
    type(u'k');
    at(300.0);
    type(u'l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(MainKeys, LStartsAPausedClipAtTheSavedPosition)
{
    playLongClip();
    type(u'k');
    control.Pause();
    at(300.0);
    type(u'l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(MainKeys, LWithoutASavedPositionLeavesThePosition)
{
    playLongClip();
    type(u'l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(MainKeys, PRAndSPauseRunAndStop)
{
    playLongClip();
    type(u'p');
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    type(u'r');
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    type(u's');
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
}

TEST_F(MainKeys, FAndNHandFullScreenToTheVideoWindow)
{
    playLongClip();
    type(u'f');
    EXPECT_TRUE(screen.on);
    type(u'N');
    EXPECT_FALSE(screen.on);
}

TEST_F(MainKeys, AlwaysOnTopIsLeftToTheWindow)
{
    EXPECT_FALSE(type(u't'));
    EXPECT_TRUE(type(u'p'));
}

TEST_F(MainKeys, ASeekBeyondTheBrakeMakesTheBrakeThereCurrent)
{
    control.duration = 100.0;
    addBrakes({u"0"_s, u"20"_s, u"40"_s, u"90"_s});
    play(1, 1);
    at(5.0);
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 65.0);
    EXPECT_EQ(clip(), 3);
}

TEST_F(MainKeys, TogglePlayPausesAndPlays)
{
    playLongClip();
    keys.togglePlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    engine->tick();
    keys.togglePlay();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

} // namespace
} // namespace orvanta::test
