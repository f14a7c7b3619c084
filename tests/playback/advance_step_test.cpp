#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class EndOfClip : public EngineTest
{
protected:
    void allOn()
    {
        option("agnc");
        option("agnp");
        option("ar");
    }

    /// Ticks until the player runs or the ticks are used up; returns how many it took.
    int ticksUntilRunning(int most)
    {
        int ticks = 0;
        while (control.CurrentState() != MediaControl::Running && ticks < most) {
            engine->tick();
            waitUntilOpened();
            ++ticks;
        }
        return ticks;
    }
};

TEST_F(EndOfClip, StartsTheNextClip)
{
    allOn();
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(EndOfClip, AdvancesExactlyOnce)
{
    allOn();
    addClips({u"one"_s, u"two"_s, u"three"_s});
    play(1, 1);
    endClip();
    engine->tick();
    engine->tick();
    EXPECT_EQ(clip(), 2);
}

TEST_F(EndOfClip, StartsTheFirstClipOfTheNextPacket)
{
    allOn();
    addClips({u"one"_s});
    addClips({u"two"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(packet(), 2);
    EXPECT_EQ(clip(), 1);
}

TEST_F(EndOfClip, OfTheLastClipOfTheLastPacketStartsTheFirstOfTheFirst)
{
    allOn();
    addClips({u"one"_s, u"two"_s});
    addClips({u"three"_s});
    play(2, 1);
    endClip();
    EXPECT_EQ(packet(), 1);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.FileName(), path(u"one.avi"_s));
}

TEST_F(EndOfClip, WithoutAutoNextClipLeavesTheCursorOnTheClipThatEnded)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_EQ(loads(), 1);
}

TEST_F(EndOfClip, WithoutAutoNextPacketLeavesTheCursorOnTheClipThatEnded)
{
    option("agnc");
    addClips({u"one"_s});
    addClips({u"two"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(packet(), 1);
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(EndOfClip, WithoutReplayPlaybackIsOver)
{
    option("agnc");
    option("agnp");
    addClips({u"one"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.slider, 0);
    EXPECT_TRUE(view.looks.playEnabled);
    EXPECT_FALSE(view.looks.pauseEnabled);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
}

TEST_F(EndOfClip, ClosesTheProgramThatTheShellStartedWhenTheOptionSaysSo)
{
    struct Row
    {
        bool fromShell;
        QString option;
        int closed;
    };
    option("agnc");
    option("agnp");
    addClips({u"one"_s});
    for (const Row& row : {Row{false, u"1"_s, 0}, Row{true, u"0"_s, 0}, Row{true, u"1"_s, 1}}) {
        option("acp", row.option);
        module.playlist.OpenedFromExplorer = row.fromShell;
        play(1, 1);
        endClip();
        EXPECT_EQ(view.unloaded, row.closed);
    }
}

class EndOfLastClipBehindAnEditor : public EndOfClip
{
protected:
    void SetUp() override
    {
        EndOfClip::SetUp();
        option("agnc");
        option("agnp");
        option("acp");
        addClips({u"one"_s});
        module.playlist.OpenedFromExplorer = true;
        view.modalWindowOpen = true;
        play(1, 1);
        endClip();
    }
};

TEST_F(EndOfLastClipBehindAnEditor, ClosesTheProgramOnceTheEditorIsClosed)
{
    engine->tick();
    EXPECT_EQ(view.unloaded, 0);
    view.modalWindowOpen = false;
    engine->tick();
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(EndOfLastClipBehindAnEditor, KeepsTheProgramWhenSomethingIsPlayedMeanwhile)
{
    play(1, 1);
    view.modalWindowOpen = false;
    engine->tick();
    EXPECT_EQ(view.unloaded, 0);
}

TEST_F(EndOfLastClipBehindAnEditor, KeepsTheProgramWhenTheEditorGaveSomethingToOpen)
{
    view.modalWindowOpen = false;
    engine->playlistReplaced();
    engine->tick();
    EXPECT_EQ(view.unloaded, 0);
}

TEST_F(EndOfClip, ClosingAfterTheLastFileHidesTheProgramThatIsKept)
{
    option("agnc");
    option("agnp");
    option("acp");
    option("nc");
    addClips({u"one"_s});
    module.playlist.OpenedFromExplorer = true;
    play(1, 1);
    endClip();
    EXPECT_EQ(view.hidden, 1);
    EXPECT_EQ(view.unloaded, 0);
    EXPECT_EQ(module.playlist.PlaylistCount, 0);
}

TEST_F(EndOfClip, IsLogged)
{
    option("agnc");
    option("agnp");
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    const LogCapture log("orvanta.playback");
    endClip();
    endClip();
    EXPECT_EQ(log.lines(),
              (QStringList{u"ended 1 1"_s, u"start 1 2 two"_s, u"ended 1 2"_s, u"stopped"_s}));
}

TEST_F(EndOfClip, PassesOverUncheckedLines)
{
    allOn();
    addClips({u"one"_s, u"two"_s, u"three"_s});
    view.checked[3] = false;
    play(1, 1);
    endClip();
    EXPECT_EQ(clip(), 3);
}

TEST_F(EndOfClip, PassesOverAPacketWhoseHeaderIsUnchecked)
{
    allOn();
    addClips({u"one"_s});
    addClips({u"two"_s});
    addClips({u"three"_s});
    view.checked[3] = false;
    play(1, 1);
    endClip();
    EXPECT_EQ(packet(), 3);
}

TEST_F(EndOfClip, WithNothingCheckedPlaybackIsOver)
{
    allOn();
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    view.checked.assign(view.checked.size(), false);
    endClip();
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(EndOfClip, ByAStopOfTheUserNeverAdvances)
{
    allOn();
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    engine->tick();
    control.playTo(9.9);
    engine->pressStop();
    engine->tick();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(EndOfClip, ServesTheQueueInTheSameTick)
{
    allOn();
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    WriteIni(u"ftl"_s, u"num"_s, u"1"_s, module.IniPath);
    WriteIni(u"ftl"_s, u"1"_s, file(u"queued.avi"_s), module.IniPath);
    control.reachEnd();
    engine->tick();
    EXPECT_EQ(home.value("ftl", "num"), u"0");
    EXPECT_EQ(module.playlist.packet(1).clip(1).Text, u"queued");
}

class BadFiles : public EndOfClip
{};

TEST_F(BadFiles, AMissingFileWhileAdvancingIsPassedOverByTheNextTick)
{
    allOn();
    addClips({u"one"_s});
    addMissingClips({u"gone"_s});
    addClips({u"three"_s});
    play(1, 1);
    endClip();
    EXPECT_EQ(packet(), 2);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    engine->tick();
    waitUntilOpened();
    EXPECT_EQ(packet(), 3);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(BadFiles, AFileThatFailsToOpenWhileAdvancingIsPassedOverByTheNextTick)
{
    allOn();
    addClips({u"one"_s, u"corrupt"_s, u"three"_s});
    control.refusedFiles = QStringList(path(u"corrupt.avi"_s));
    play(1, 1);
    endClip();
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(ticksUntilRunning(3), 1);
    EXPECT_EQ(clip(), 3);
}

TEST_F(BadFiles, ABrakePacketWithoutItsMediaIsPassedOverWhole)
{
    allOn();
    addClips({u"one"_s});
    addBrakes({u"1"_s, u"2"_s, u"3"_s});
    addClips({u"three"_s});
    QFile::remove(path(u"lesson.avi"_s));
    play(1, 1);
    endClip();
    EXPECT_EQ(ticksUntilRunning(5), 1);
    EXPECT_EQ(packet(), 3);
}

TEST_F(BadFiles, AnAutomaticStartWithABadFirstFileGoesOnToTheNext)
{
    allOn();
    option("as");
    addMissingClips({u"gone"_s});
    addClips({u"two"_s});
    engine->playlistReplaced();
    EXPECT_EQ(ticksUntilRunning(3), 1);
    EXPECT_EQ(packet(), 2);
}

TEST_F(BadFiles, AreNotSkippedWhenTheOptionsForbidIt)
{
    addMissingClips({u"gone"_s});
    addClips({u"two"_s});
    engine->ListClick(1, 1);
    engine->tick();
    engine->tick();
    EXPECT_EQ(packet(), 1);
    EXPECT_EQ(loads(), 0);
}

TEST_F(BadFiles, APlaylistWithoutAnyPlayableClipStopsAfterOneWholePass)
{
    allOn();
    addMissingClips({u"a"_s, u"b"_s, u"c"_s});
    const LogCapture log("orvanta.playback");
    engine->ListClick(1, 2);
    EXPECT_EQ(ticksUntilRunning(10), 10);
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(BadFiles, APlaylistWithoutAnyPlayableClipRestartsOncePerTickAtMost)
{
    allOn();
    addMissingClips({u"a"_s, u"b"_s});
    engine->ListClick(1, 2);
    engine->tick();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.clipText, u"a");
}

TEST_F(BadFiles, ABadBrakePacketAloneStopsAfterOneWholePass)
{
    allOn();
    addBrakes({u"1"_s, u"2"_s, u"3"_s});
    QFile::remove(path(u"lesson.avi"_s));
    engine->ListClick(1, 3);
    view.listIndex = 99;
    engine->tick();
    EXPECT_EQ(view.listIndex, -1);
}

TEST_F(BadFiles, AnOpenedClipLetsTheNextPassBeginAnew)
{
    allOn();
    addClips({u"one"_s});
    addMissingClips({u"gone"_s});
    play(1, 1);
    for (int pass = 0; pass < 3; ++pass) {
        endClip(); // to the missing one
        EXPECT_EQ(packet(), 2);
        EXPECT_EQ(ticksUntilRunning(3), 1);
        EXPECT_EQ(packet(), 1);
    }
}

TEST_F(BadFiles, OfAnEarlierPlaylistAreForgottenByTheNext)
{
    option("as");
    option("agnc");
    addMissingClips({u"one"_s, u"two"_s});
    engine->ListClick(1, 1);
    engine->tick();
    engine->tick();
    WriteIni(u"ftl"_s, u"1"_s, path(u"bad.gone"_s), module.IniPath);
    WriteIni(u"ftl"_s, u"2"_s, file(u"good.avi"_s), module.IniPath);
    WriteIni(u"ftl"_s, u"num"_s, u"2"_s, module.IniPath);
    engine->tick();
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(clip(), 2);
}

TEST_F(BadFiles, OfAnEarlierPlaylistStartNothingInTheNext)
{
    option("agnc");
    addMissingClips({u"one"_s, u"two"_s});
    engine->ListClick(1, 1);
    module.playlist.Playlist.clear();
    module.playlist.PlaylistCount = 0;
    addClips({u"three"_s, u"four"_s});
    engine->playlistReplaced();
    engine->tick();
    engine->tick();
    EXPECT_EQ(loads(), 0);
}

} // namespace orvanta::test
