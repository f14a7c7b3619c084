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

    /// As playing comes to this place by itself.
    void startByItself(Cursor place)
    {
        module.playlist.CurrentPacket = place.packet;
        module.playlist.CurrentClip = place.clip;
        engine->startCurrent();
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

struct Advance
{
    const char* name;
    std::vector<const char*> options;
    std::vector<QStringList> packets;
    std::pair<int, int> from, to;
    QString file; // that plays then; empty: none
    std::vector<std::size_t> uncheckedLines = {};
};

class EndOfClipBy : public EndOfClip, public testing::WithParamInterface<Advance>
{};

TEST_P(EndOfClipBy, AdvancesExactlyOnce)
{
    for (const char* key : GetParam().options) {
        option(key);
    }
    for (const QStringList& clips : GetParam().packets) {
        addClips(clips);
    }
    for (const std::size_t line : GetParam().uncheckedLines) {
        view.checked[line] = false;
    }
    play(GetParam().from.first, GetParam().from.second);
    endClip();
    EXPECT_EQ(place(), GetParam().to);
    engine->tick();
    engine->tick();
    EXPECT_EQ(place(), GetParam().to);
    const bool plays = !GetParam().file.isEmpty();
    EXPECT_EQ(control.FileName(), plays ? path(GetParam().file) : QString());
    EXPECT_EQ(control.CurrentState(), plays ? MediaControl::Running : MediaControl::NotLoaded);
    EXPECT_EQ(loads(), plays ? 2 : 1);
}

const std::vector<const char*> kAllOptions = {"agnc", "agnp", "ar"};
const QStringList kOne(u"one"_s);
const QStringList kTwo(u"two"_s);

INSTANTIATE_TEST_SUITE_P(
    OptionsAndMarks, EndOfClipBy,
    testing::Values(
        Advance{"NextClip", kAllOptions, {{u"one"_s, u"two"_s}}, {1, 1}, {1, 2}, u"two.avi"_s},
        Advance{"NextPacket", kAllOptions, {kOne, kTwo}, {1, 1}, {2, 1}, u"two.avi"_s},
        Advance{"Replay",
                kAllOptions,
                {{u"one"_s, u"two"_s}, {u"three"_s}},
                {2, 1},
                {1, 1},
                u"one.avi"_s},
        Advance{"WithoutNextClip", {}, {{u"one"_s, u"two"_s}}, {1, 1}, {1, 1}, {}},
        Advance{"WithoutNextPacket", {"agnc"}, {kOne, kTwo}, {1, 1}, {1, 1}, {}},
        Advance{"OverUncheckedLines",
                kAllOptions,
                {{u"one"_s, u"two"_s, u"three"_s}},
                {1, 1},
                {1, 3},
                u"three.avi"_s,
                {3}},
        Advance{"OverAnUncheckedHeader",
                kAllOptions,
                {kOne, kTwo, {u"three"_s}},
                {1, 1},
                {3, 1},
                u"three.avi"_s,
                {3}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(EndOfClip, WithoutReplayPlaybackIsOver)
{
    turnOn({"agnc", "agnp"});
    playClips({u"one"_s});
    endClip();
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.slider, 0);
    EXPECT_TRUE(view.looks.playEnabled && !view.looks.pauseEnabled);
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
    turnOn({"agnc", "agnp"});
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
    turnOn({"agnc", "agnp", "acp", "nc"});
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
    turnOn({"agnc", "agnp"});
    playClips({u"one"_s, u"two"_s});
    const LogCapture log("orvanta.playback");
    endClip();
    endClip();
    EXPECT_EQ(log.lines(),
              (QStringList{u"ended 1 1"_s, u"start 1 2 two"_s, u"ended 1 2"_s, u"stopped"_s}));
}

TEST_F(EndOfClip, WithNothingCheckedPlaybackIsOver)
{
    allOn();
    playClips({u"one"_s, u"two"_s});
    view.checked.assign(view.checked.size(), false);
    endClip();
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(loads(), 1);
}

TEST_F(EndOfClip, ByAStopOfTheUserNeverAdvances)
{
    allOn();
    playClips({u"one"_s, u"two"_s});
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
    playClips({u"one"_s, u"two"_s});
    queue({file(u"queued.avi"_s)});
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
    startByItself({1, 1});
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
    startByItself({1, 2});
    EXPECT_EQ(ticksUntilRunning(10), 10);
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(log.lines(), QStringList(u"stopped"_s));
}

TEST_F(BadFiles, APlaylistWithoutAnyPlayableClipRestartsOncePerTickAtMost)
{
    allOn();
    addMissingClips({u"a"_s, u"b"_s});
    startByItself({1, 2});
    engine->tick();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.clipText, u"a");
}

TEST_F(BadFiles, ABadBrakePacketAloneStopsAfterOneWholePass)
{
    allOn();
    addBrakes({u"1"_s, u"2"_s, u"3"_s});
    QFile::remove(path(u"lesson.avi"_s));
    startByItself({1, 3});
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
    turnOn({"as", "agnc"});
    addMissingClips({u"one"_s, u"two"_s});
    startByItself({1, 1});
    engine->tick();
    engine->tick();
    queue({path(u"bad.gone"_s), file(u"good.avi"_s)});
    engine->tick();
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(clip(), 2);
}

TEST_F(BadFiles, OfAnEarlierPlaylistStartNothingInTheNext)
{
    option("agnc");
    addMissingClips({u"one"_s, u"two"_s});
    startByItself({1, 1});
    emptyPlaylist();
    addClips({u"three"_s, u"four"_s});
    engine->playlistReplaced();
    engine->tick();
    engine->tick();
    EXPECT_EQ(loads(), 0);
}

class OpenedWhileAClipPlaysOn : public EndOfClip
{
protected:
    void openWhilePlaying()
    {
        turnOn({"agnc", "agnp"});
        playClips({u"old"_s, u"older"_s});
        emptyPlaylist();
        addClips({u"one"_s, u"two"_s});
        engine->playlistReplaced();
        ASSERT_EQ(control.FileName(), path(u"old.avi"_s));
    }
};

TEST_F(OpenedWhileAClipPlaysOn, BeginsWithItsFirstClipWhenTheOldOneEnds)
{
    openWhilePlaying();
    endClip();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.FileName(), path(u"one.avi"_s));
    endClip();
    EXPECT_EQ(place(), at(1, 2));
}

TEST_F(OpenedWhileAClipPlaysOn, BeginsWithItsFirstClipWhenTheNextIsAskedFor)
{
    openWhilePlaying();
    engine->nextChecked();
    EXPECT_EQ(runningFile(), path(u"one.avi"_s));
}

TEST_F(OpenedWhileAClipPlaysOn, BeginsWithItsFirstCheckedClip)
{
    openWhilePlaying();
    view.checked[2] = false;
    endClip();
    EXPECT_EQ(place(), at(1, 2));
}

TEST_F(OpenedWhileAClipPlaysOn, BeginsWithItsFirstBrakeWhenTheOldClipEnds)
{
    turnOn({"agnc", "agnp"});
    playClips({u"old"_s});
    emptyPlaylist();
    addBrakes({u"5"_s, u"12"_s});
    engine->playlistReplaced();
    endClip();
    waitUntilRunning();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(control.FileName(), path(u"lesson.avi"_s));
}

TEST_F(BadFiles, AskedForByHandStartNoOther)
{
    allOn();
    addMissingClips({u"gone"_s});
    addClips({u"corrupt"_s, u"good"_s});
    control.refusedFiles = QStringList(path(u"corrupt.avi"_s));
    for (const Cursor& bad : {Cursor{1, 1}, Cursor{2, 1}}) {
        engine->ListClick(bad.packet, bad.clip);
        waitUntilOpened();
        EXPECT_EQ(ticksUntilRunning(3), 3);
        EXPECT_EQ(place(), at(bad.packet.value(), bad.clip.value()));
    }
}

} // namespace orvanta::test
