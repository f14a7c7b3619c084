// What the main window's keys do.
#include "playback/keyboard.h"
#include "playback/practice_controls.h"
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
        playOnTo(100.0);
    }

    void playOnTo(double seconds)
    {
        control.playTo(seconds);
        engine->tick();
    }

    bool type(char16_t character) { return keys.press(mainWindowLetter(character).value()); }

    QString savedPosition() { return ReadIni(u"pos"_s, u"one"_s, module.IniPath); }

    PlainScreen screen;
    VideoWindowKeys videoKeys{control, video.mirror(), screen,
                              [this](double seconds) { control.setCurrentPosition(seconds); }};
    MainWindowKeys keys{module, *engine, view, videoKeys};
};

TEST_F(MainKeys, BAndMSeekAMinuteInBothCases)
{
    struct Row
    {
        const char* says;
        double from;
        char16_t key;
        double to;
        bool refused = false;
    };
    playLongClip();
    for (const Row& row :
         {Row{"b back", 100, u'b', 40}, Row{"B back", 100, u'B', 40}, Row{"m on", 100, u'm', 160},
          Row{"not before the beginning", 10, u'b', 0}, Row{"refused", 100, u'm', 100, true}}) {
        playOnTo(row.from);
        control.failSeeks = row.refused;
        type(row.key);
        EXPECT_DOUBLE_EQ(control.CurrentPosition(), row.to) << row.says;
    }
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
    type(u'l');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0) << "nothing is saved";
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    type(u'k');
    for (const bool paused : {false, true}) {
        if (paused) {
            control.Pause();
        }
        playOnTo(300.0);
        type(u'l');
        EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0) << paused;
        EXPECT_EQ(control.CurrentState(), MediaControl::Running) << paused;
    }
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
    playBrakes({u"0"_s, u"20"_s, u"40"_s, u"90"_s});
    playOnTo(5.0);
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

TEST_F(MainKeys, CommandsOfThePlayerPractise)
{
    playLongClip();
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::Slower));
    EXPECT_EQ(engine->practice().values().speed, 95);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::NormalSpeed));
    EXPECT_EQ(engine->practice().values().speed, 100);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::Faster));
    EXPECT_EQ(engine->practice().values().speed, 110);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::RepeatLine));
    EXPECT_TRUE(engine->practice().values().isEndless());
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::NextWait));
    EXPECT_NE(engine->practice().values().wait, Practice::kNoWait);
}

TEST_F(MainKeys, CommandsOfThePlayerGoFromLineToLineAndFromClipToClip)
{
    addClips({u"one"_s, u"two"_s, u"three"_s});
    play(1, 1);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::NextLine));
    EXPECT_EQ(runningFile(), path(u"two.avi"_s));
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::PreviousLine));
    EXPECT_EQ(runningFile(), path(u"one.avi"_s));
    control.playTo(5);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::LineAgain));
    EXPECT_LT(control.CurrentPosition(), 5);
    EXPECT_EQ(clip(), 1);
}

TEST_F(MainKeys, CommandsOfThePlayerStopItAndThoseOfWindowsAreNotIts)
{
    playLongClip();
    EXPECT_FALSE(carryOutInPlayer(*engine, Command::PlayLine));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(carryOutInPlayer(*engine, Command::StopButton));
    EXPECT_NE(control.CurrentState(), MediaControl::Running);
}

} // namespace
} // namespace orvanta::test
