// Lines again, slower and with waits, in a scripted player.
#include "playback/practice_controls.h"
#include "tests/playback/brakes_fixture.h"

namespace orvanta::test {

class PractisedLines : public Brakes
{
protected:
    PractisedLines() { turnOn({"agnc", "agnp"}); }

    PracticeControls& practice() { return engine->practice(); }

    /// The clip plays to its end, and the tick has seen it.
    void endOfClip()
    {
        control.reachEnd();
        engine->tick();
    }

    void waitUntilPlace(std::pair<int, int> wanted)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return place() == wanted; }))
            << packet() << ' ' << clip();
    }

    LogCapture log{"orvanta.playback"};
};

TEST_F(PractisedLines, AreAsWithoutPracticeWhenNothingIsPractised)
{
    playClips({u"a"_s, u"b"_s});
    control.calls.clear();
    endOfClip();
    EXPECT_EQ(control.calls.first(2), QStringList({u"Stop"_s, u"load "_s}));
    EXPECT_EQ(clip(), 2);
}

TEST_F(PractisedLines, PlayAClipAgainWithoutLoadingItAgain)
{
    practice().set({.times = 3});
    playClips({u"a"_s, u"b"_s});
    const qsizetype loaded = loads();
    endOfClip();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.CurrentState(), control.Running);
    endOfClip();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(loads(), loaded);
    endOfClip();
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(log.lines().filter(u"again"_s), QStringList({u"again 1 1 2"_s, u"again 1 1 3"_s}));
}

TEST_F(PractisedLines, OfALessonEndAtTheNextBrakeAndBeginAtTheirs)
{
    practice().set({.times = 2});
    playLesson();
    tickAt(12.02);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.CurrentPosition(), 5);
    EXPECT_EQ(control.CurrentState(), control.Running);
    tickAt(12.02);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(log.lines().filter(u"again"_s), QStringList({u"again 1 1 2"_s}));
}

TEST_F(PractisedLines, EndWithTheEndMarkWhichIsNoLineItself)
{
    practice().set({.times = 2});
    addBrakes({u"5"_s, u"12"_s, u"20"_s});
    addClips({u"next"_s});
    play(1, 2);
    tickAt(20.02);
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.CurrentPosition(), 12);
    tickAt(20.02);
    EXPECT_EQ(place(), at(1, 3));
    tickAt(20.06);
    EXPECT_EQ(place(), at(2, 1));
}

TEST_F(PractisedLines, WhoseEndMarkIsTheClipsEndArePlayedAgainFromTheirBrake)
{
    practice().set({.times = 2});
    addBrakes({u"5"_s, u"39.5"_s});
    addClips({u"next"_s});
    play(1, 1);
    endOfClip();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.CurrentPosition(), 5);
    EXPECT_EQ(control.CurrentState(), control.Running);
    endOfClip();
    EXPECT_EQ(place(), at(2, 1));
}

TEST_F(PractisedLines, BeginAnewWhenAPersonStartsThem)
{
    practice().set({.times = 2});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    engine->ListClick(1, 1);
    waitUntilRunning();
    endOfClip();
    EXPECT_EQ(place(), at(1, 1)) << "the second round of a new start";
}

TEST_F(PractisedLines, WaitForAKeyAndGoOnAtPlay)
{
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    EXPECT_TRUE(practice().isWaiting());
    EXPECT_EQ(control.CurrentState(), control.Paused);
    EXPECT_EQ(log.lines().last(), u"waiting 1 1");
    engine->tick();
    EXPECT_TRUE(practice().isWaiting());
    engine->pressPlay();
    waitUntilPlace(at(1, 2));
    EXPECT_FALSE(practice().isWaiting());
}

TEST_F(PractisedLines, GoOnAfterAWaitWhereAKeyOfTheVideoWindowSetsThePlayerRunning)
{
    practice().set({.wait = Practice::kWaitForKey});
    playLesson();
    tickAt(12.02);
    ASSERT_TRUE(practice().isWaiting());
    control.Run();
    waitUntilPlace(at(1, 2));
    EXPECT_EQ(control.CurrentPosition(), 12);
    EXPECT_EQ(control.CurrentState(), control.Running);
}

TEST_F(PractisedLines, SeekTheNextBrakeDuringTheWaitAndNotBehindIt)
{
    practice().set({.wait = Practice::kWaitForKey});
    playLesson();
    control.calls.clear();
    tickAt(12.02);
    ASSERT_TRUE(practice().isWaiting());
    EXPECT_TRUE(control.calls.contains(u"seek 12")) << qPrintable(control.calls.join(u' '));
    EXPECT_EQ(control.CurrentState(), control.Paused);
    control.calls.clear();
    practice().goOn();
    waitUntilPlace(at(1, 2));
    EXPECT_EQ(control.CurrentState(), control.Running);
    EXPECT_EQ(control.CurrentPosition(), 12);
    EXPECT_TRUE(control.calls.filter(u"seek"_s).isEmpty()) << qPrintable(control.calls.join(u' '));
}

TEST_F(PractisedLines, WaitAsLongAsTheyLastedAndGoOnByThemselves)
{
    control.duration = 0.2;
    practice().set({.wait = 50});
    playClips({u"a"_s, u"b"_s});
    double told = -1;
    QObject::connect(&practice(), &PracticeControls::waitBegan, [&](double s) { told = s; });
    endOfClip();
    EXPECT_DOUBLE_EQ(told, 0.1);
    EXPECT_EQ(place(), at(1, 1));
    waitUntilPlace(at(1, 2));
}

TEST_F(PractisedLines, GoOnAtTheRemotesNextLine)
{
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s, u"c"_s});
    view.checked[3] = false;
    endOfClip();
    engine->lineStep(1);
    waitUntilPlace(at(1, 3)); // as the wait's end would: unchecked lines are passed over
}

TEST_F(PractisedLines, RepeatEndlesslyWithAWaitBetweenTheRounds)
{
    practice().set({.times = Practice::kEndless, .wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    ASSERT_TRUE(practice().isWaiting());
    practice().goOn();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.CurrentState(), control.Running);
    EXPECT_EQ(log.lines().last(), u"again 1 1 2");
    endOfClip();
    engine->lineStep(1);
    waitUntilPlace(at(1, 2));
}

TEST_F(PractisedLines, WaitNoLongerOnceStopped)
{
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    engine->pressStop();
    EXPECT_FALSE(practice().isWaiting());
    engine->pressPlay();
    engine->tick();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(PractisedLines, WaitNoLongerOnceAnotherLineBegins)
{
    practice().set({.wait = 300});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    int over = 0;
    QObject::connect(&practice(), &PracticeControls::waitOver, [&] { ++over; });
    engine->ListClick(1, 1);
    EXPECT_FALSE(practice().isWaiting());
    EXPECT_EQ(over, 1);
}

TEST_F(PractisedLines, WaitNoLongerOnceWaitingIsSwitchedOff)
{
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    practice().set({});
    waitUntilPlace(at(1, 2));
}

TEST_F(PractisedLines, WaitNoLongerOnceTheProgramCloses)
{
    practice().set({.wait = 50});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    engine->closeProgram();
    EXPECT_FALSE(practice().isWaiting());
}

TEST_F(PractisedLines, GetFasterFromRoundToRoundAndSlowAgainWithTheNextLine)
{
    practice().set({.times = 3, .from = 50, .step = 30});
    playClips({u"a"_s, u"b"_s});
    EXPECT_DOUBLE_EQ(control.Speed(), 0.5);
    endOfClip();
    EXPECT_DOUBLE_EQ(control.Speed(), 0.8);
    endOfClip();
    EXPECT_DOUBLE_EQ(control.Speed(), 1);
    endOfClip();
    EXPECT_DOUBLE_EQ(control.Speed(), 0.5);
}

TEST_F(PractisedLines, ArePlayedFromTheirStartOnDemand)
{
    playLesson(2);
    control.playTo(17);
    engine->tick();
    engine->lineAgain();
    EXPECT_EQ(control.CurrentPosition(), 12);
    EXPECT_EQ(clip(), 2);
}

TEST_F(PractisedLines, AreSteppedThroughCheckedOrNotAcrossPacketsWithoutTheEndMarks)
{
    addBrakes({u"5"_s, u"12"_s});
    addBrakes({u"7"_s}, u"short.avi"_s);
    addClips({u"a"_s, u"b"_s});
    view.checked[7] = false; // "a" of the third packet
    play(1, 1);
    engine->lineStep(1);
    waitUntilPlace(at(3, 1));
    engine->lineStep(1);
    waitUntilPlace(at(3, 2));
    engine->lineStep(1);
    EXPECT_EQ(place(), at(3, 2));
    engine->lineStep(-1);
    waitUntilPlace(at(3, 1));
    engine->lineStep(-1);
    waitUntilPlace(at(1, 1));
    engine->lineStep(-1);
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(PractisedLines, KeepRepeatsOfAnotherNumberOverAnEndlessOne)
{
    practice().set({.times = 4});
    practice().toggleRepeat();
    EXPECT_TRUE(practice().values().isEndless());
    practice().toggleRepeat();
    EXPECT_EQ(practice().values().times, 4);
}

TEST_F(PractisedLines, GoThroughTheWaitsByOneKey)
{
    practice().nextWait();
    EXPECT_EQ(practice().values().wait, Practice::kWaitForKey);
    practice().nextWait();
    EXPECT_EQ(practice().values().wait, 100);
    practice().nextWait();
    EXPECT_EQ(practice().values().wait, Practice::kNoWait);
}

TEST_F(PractisedLines, ChangeSpeedByFineStepsBelowNormalAndCoarseOnesAbove)
{
    practice().faster();
    EXPECT_EQ(practice().values().speed, 110);
    practice().slower();
    practice().slower();
    EXPECT_EQ(practice().values().speed, 95);
    EXPECT_DOUBLE_EQ(control.Speed(), 0.95);
    practice().normalSpeed();
    EXPECT_DOUBLE_EQ(control.Speed(), 1);
    for (int i = 0; i < 30; ++i) {
        practice().slower();
    }
    EXPECT_EQ(practice().values().speed, Practice::kSlowest);
}

TEST_F(PractisedLines, AskThePlayerForItsPositionShortlyBeforeTheNextBrake)
{
    playLesson();
    control.playTo(11.5);
    control.playTo(11.95);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.positionsAsked > 0; }));
}

TEST_F(PractisedLines, WaitNoLongerOnceStoppedInTheTray)
{
    turnOn({"si"});
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    module.tray.TrayStopRequest = true;
    engine->tick();
    EXPECT_FALSE(practice().isWaiting());
}

TEST_F(PractisedLines, WaitNoLongerOnceAPersonSeeks)
{
    practice().set({.wait = Practice::kWaitForKey});
    playLesson();
    tickAt(12.02);
    ASSERT_TRUE(practice().isWaiting());
    engine->seekTo(8);
    EXPECT_FALSE(practice().isWaiting());
    control.Run();
    tickAt(12.02);
    EXPECT_EQ(clip(), 1) << "the line's end was heard again, and the lesson waits again";
    EXPECT_TRUE(practice().isWaiting());
}

TEST_F(PractisedLines, WaitByTheNewWayWhenItChangesMeanwhile)
{
    control.duration = 0.2;
    practice().set({.wait = Practice::kWaitForKey});
    playClips({u"a"_s, u"b"_s});
    endOfClip();
    practice().set({.wait = 50});
    waitUntilPlace(at(1, 2));
}

TEST_F(PractisedLines, WhoseEndMarkIsBehindTheClipsEndLastUntilTheClipsEnd)
{
    practice().set({.wait = 100});
    addBrakes({u"38"_s, u"300"_s});
    play(1, 1);
    double told = -1;
    QObject::connect(&practice(), &PracticeControls::waitBegan, [&](double s) { told = s; });
    endOfClip();
    EXPECT_DOUBLE_EQ(told, 2);
}

TEST_F(PractisedLines, BeginFromTheirStartAlsoInAStoppedPlayerThatWasSought)
{
    playClips({u"a"_s});
    control.Stop();
    engine->seekTo(6);
    engine->lineAgain();
    EXPECT_EQ(control.CurrentPosition(), 0);
    EXPECT_EQ(control.CurrentState(), control.Running);
}

TEST_F(PractisedLines, OpenedWhileAClipPlaysOnBeginWithTheFirst)
{
    playClips({u"a"_s, u"b"_s});
    emptyPlaylist();
    addClips({u"c"_s, u"d"_s});
    option("as", u"0"_s);
    engine->playlistReplaced();
    engine->lineStep(1);
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_TRUE(control.FileName().endsWith(u"c.avi"_s)) << qPrintable(control.FileName());
}

TEST_F(PractisedLines, NeverSpeakOfMoreRoundsThanThereAre)
{
    practice().set({.times = 2, .wait = Practice::kWaitForKey});
    playClips({u"a"_s});
    endOfClip();
    EXPECT_TRUE(practice().roundText().contains(u'2'));
    endOfClip();
    ASSERT_TRUE(practice().isWaiting());
    EXPECT_FALSE(practice().roundText().contains(u'3')) << qPrintable(practice().roundText());
}

} // namespace orvanta::test
