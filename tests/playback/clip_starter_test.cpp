#include "playback/clip_starter.h"
#include "tests/playback/engine_fixture.h"

#include <QDir>

namespace orvanta::test {

class Starting : public EngineTest
{};

TEST_F(Starting, AClipLoadsItsFileAndRuns)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(Starting, MovesIndicesTextAndListCursorAndChecksTheLine)
{
    addClips({u"one"_s});
    addClips({u"two"_s, u"three"_s});
    view.checked[5] = false;
    play(2, 2);
    EXPECT_EQ(place(), at(2, 2));
    EXPECT_EQ(view.clipText, u"three");
    EXPECT_EQ(view.listIndex, 5);
    EXPECT_TRUE(view.checked[5]);
    EXPECT_EQ(view.timer2Line, 5);
}

TEST_F(Starting, ShowsTheLooksOfThePlayingState)
{
    playClips({u"one"_s});
    EXPECT_FALSE(view.looks.playEnabled);
    EXPECT_TRUE(view.looks.pauseEnabled);
    EXPECT_TRUE(view.looks.playSwapped);
    EXPECT_TRUE(view.looks.pauseSwapped);
}

TEST_F(Starting, ARelativePathIsMeantBelowThePacketsFolderLooseOnesBelowTheOneOpenedLast)
{
    QDir(home.path()).mkdir(u"lesson"_s);
    file(u"lesson/one.avi"_s);
    file(u"one.avi"_s);
    module.playlist.PacketFolder = home.path() + u'/';
    for (const QString& folder : {path(u"lesson/"_s), QString()}) {
        PlaylistEntry packet;
        packet.Folder = folder;
        packet.Clips.push_back({.Time = {}, .Text = {}, .Path = u"one.avi"_s});
        play(addPacket(packet), 1);
        EXPECT_EQ(control.FileName(), path(folder.isEmpty() ? u"one.avi"_s : u"lesson/one.avi"_s));
    }
}

TEST_F(Starting, AClipThatItsPacketLacksIsNotTakenFromAnotherPacketsFolder)
{
    QDir(home.path()).mkdir(u"l1"_s);
    QDir(home.path()).mkdir(u"l2"_s);
    file(u"l2/intro.mp3"_s);
    module.playlist.PacketFolder = path(u"l2/"_s);
    PlaylistEntry packet;
    packet.Folder = path(u"l1/"_s);
    packet.Clips.push_back({.Time = {}, .Text = {}, .Path = u"intro.mp3"_s});
    engine->ListClick(addPacket(packet), 1);
    EXPECT_EQ(loads(), 0);
}

TEST_F(Starting, AClipOfALessonThatHasMovedPlaysFromDeepBelowItsFolder)
{
    QDir(home.path()).mkpath(u"lesson/clips/1"_s);
    const QString clip = file(u"lesson/clips/1/One.avi"_s);
    PlaylistEntry packet;
    packet.Folder = path(u"lesson/"_s);
    packet.Clips.push_back({.Time = {}, .Text = {}, .Path = u"C:\\Old\\one.avi"_s});
    play(addPacket(packet), 1);
    EXPECT_EQ(control.FileName(), clip);
    EXPECT_EQ(module.playlist.packet(1).clip(1).Path, u"C:\\Old\\one.avi");
}

TEST_F(Starting, AGroupsPictureIsLookedForInTheGroupsFolderWhateverIsOpenedLater)
{
    QDir(home.path()).mkdir(u"lesson"_s);
    const QString picture = file(u"cover.png"_s);
    addClips({u"one"_s});
    PlaylistEntry& packet = module.playlist.packet(1);
    packet.Folder = path(u"lesson/"_s);
    packet.Picture = u"cover.png"_s;
    packet.PictureFolder = home.path() + u'/';
    module.playlist.PacketFolder = path(u"lesson/"_s);
    play(1, 1);
    EXPECT_EQ(video.stillPicture, picture);
}

TEST_F(Starting, ShowsThePictureOfThePacketAndClearsItWhereThereIsNone)
{
    addClips({u"one"_s});
    const QString there = file(u"picture.png"_s);
    for (const QString& picture : {there, QString(), u"{No picture}"_s, path(u"gone.png"_s)}) {
        video.stillPicture = u"earlier"_s;
        module.playlist.packet(1).Picture = picture;
        play(1, 1);
        EXPECT_EQ(video.stillPicture, picture == there ? there : QString());
    }
}

TEST_F(Starting, HandsOverTheSavedPositionOfTheEntryThatPlaysAndSeeksNowhere)
{
    addClips({u"one"_s, u"two"_s, u"three"_s});
    WriteIni(u"pos"_s, u"one"_s, u"11"_s, module.IniPath);
    WriteIni(u"pos"_s, u"two"_s, u"22"_s, module.IniPath);
    play(1, 1);
    EXPECT_EQ(video.mirror().VideoBookmark, u"11");
    play(1, 2);
    EXPECT_EQ(video.mirror().VideoBookmark, u"22");
    play(1, 3);
    EXPECT_EQ(video.mirror().VideoBookmark, QString());
    EXPECT_TRUE(control.calls.filter(u"seek"_s).isEmpty());
}

TEST_F(Starting, IsLoggedWithPacketClipAndText)
{
    addClips({u"one"_s, u"Урок 2"_s});
    const LogCapture log("orvanta.playback");
    play(1, 2);
    EXPECT_EQ(log.lines(), QStringList(u"start 1 2 Урок 2"_s));
}

TEST_F(Starting, AMissingFileMovesTheCursorAndLeavesThePlayerAsItWas)
{
    addClips({u"one"_s});
    addMissingClips({u"gone"_s});
    play(1, 1);
    control.calls.clear();
    const LogCapture log("orvanta.playback");
    engine->ListClick(2, 1);
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(place(), at(2, 1));
    EXPECT_EQ(view.clipText, u"gone");
    EXPECT_EQ(view.listIndex, 4);
    EXPECT_EQ(log.lines(), QStringList());
}

TEST_F(Starting, AMissingFileInAnEmptyPlayerLeavesTheIdleLooks)
{
    addMissingClips({u"gone"_s});
    engine->ListClick(1, 1);
    EXPECT_TRUE(view.looks.playEnabled && !view.looks.pauseEnabled);
}

TEST_F(Starting, EverySwallowedErrorIsLogged)
{
    addMissingClips({u"gone"_s});
    module.playlist.CurrentPacket = 1;
    module.playlist.CurrentClip = 1;
    const LogCapture log("orvanta.errors");
    engine->ListClick(1, 1);
    EXPECT_EQ(log.lines(), QStringList(u"media: error 53, File not found"_s));
}

TEST_F(Starting, APlaceOutsideThePlaylistRaisesNothing)
{
    addClips({u"one"_s});
    engine->ListClick(7, 1);
    engine->ListClick(1, 7);
    EXPECT_EQ(clip(), 7);
    EXPECT_EQ(loads(), 0);
}

TEST_F(Starting, ABrakeSeeksToItsTimeAndRuns)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12.5"_s}, 2);
    EXPECT_EQ(control.CurrentPosition(), 12.5);
    EXPECT_EQ(clip(), 2);
    EXPECT_EQ(view.clipText, u"brake 2");
}

TEST_F(Starting, ABrakeOfLoadedMediaDoesNotReloadIt)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12"_s, u"20"_s});
    control.calls.clear();
    engine->ListClick(1, 3);
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(control.CurrentPosition(), 20);
}

TEST_F(Starting, ABrakeOfAnotherPacketReloadsTheSameMedia)
{
    control.duration = 40;
    addBrakes({u"5"_s});
    addBrakes({u"12"_s});
    play(1, 1);
    play(2, 1);
    EXPECT_EQ(loads(), 2);
}

TEST_F(Starting, ABrakeRunsMediaThatWasStopped)
{
    control.duration = 40;
    playBrakes({u"5"_s});
    control.Stop();
    engine->ListClick(1, 1);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(control.CurrentPosition(), 5);
}

TEST_F(Starting, ABrakeWhoseTimeIsNoNumberPlaysWithoutSeeking)
{
    playBrakes({u"soon"_s});
    EXPECT_EQ(control.CurrentPosition(), 0);
    EXPECT_EQ(clip(), 1);
}

TEST_F(Starting, ABrakeWhoseMediaCannotBeOpenedStopsWaiting)
{
    addBrakes({u"5"_s});
    control.refusedFiles = QStringList(path(u"lesson.avi"_s));
    engine->ListClick(1, 1);
    EXPECT_FALSE(control.isOpening());
    EXPECT_TRUE(control.calls.filter(u"seek"_s).isEmpty());
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.clipText, u"brake 1");
}

TEST_F(Starting, AStartThatIsSupersededWhileItWaitsLeavesAllToItsSuccessor)
{
    control.autoOpen = false;
    addBrakes({u"5"_s});
    addClips({u"one"_s});
    QTimer::singleShot(0, engine.get(), [this] { engine->ListClick(2, 1); });
    const LogCapture log("orvanta.playback");
    engine->ListClick(1, 1); // returns because of the second start
    EXPECT_EQ(packet(), 2);
    EXPECT_EQ(view.clipText, u"one");
    EXPECT_EQ(control.FileName(), path(u"one.avi"_s));
    EXPECT_EQ(log.lines(), QStringList(u"start 2 1 one"_s));
}

TEST_F(Starting, AStartThatWaitsEndsWhenTheProgramCloses)
{
    control.autoOpen = false;
    addBrakes({u"5"_s});
    QTimer::singleShot(0, engine.get(), [this] { engine->closeProgram(); });
    engine->ListClick(1, 1);
    EXPECT_EQ(view.unloaded, 1);
    EXPECT_EQ(packet(), 0);
}

TEST_F(Starting, AnEndThatWasNotServedDoesNotEndTheNewClip)
{
    playClips({u"one"_s, u"two"_s});
    control.reachEnd();
    play(1, 2);
    engine->tick();
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(Starting, AnEndThatWasNotServedDoesNotEndTheBrakeThatIsBegunAgain)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12"_s});
    control.reachEnd();
    engine->ListClick(1, 1);
    engine->tick();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(loads(), 1);
}

TEST_F(Starting, AFailureDuringTheWaitIsNotServedBeforeTheCursorHasMoved)
{
    turnOn({"agnc", "agnp"});
    addClips({u"one"_s});
    addClips({u"two"_s});
    addBrakes({u"5"_s});
    addClips({u"four"_s});
    play(2, 1);
    control.refusedFiles = QStringList(path(u"lesson.avi"_s));
    QObject::connect(&control, &MediaControl::openFailed, engine.get(), [this] { engine->tick(); });
    engine->nextChecked();
    EXPECT_EQ(packet(), 3);
    engine->tick();
    EXPECT_EQ(packet(), 4);
    waitUntilRunning();
}

TEST_F(Starting, ALessonThatTheUserUnloadsWhileItOpensIsNoFailureToGoOnFrom)
{
    turnOn({"agnc", "agnp"});
    addClips({u"one"_s});
    addBrakes({u"5"_s});
    addClips({u"three"_s});
    play(1, 1);
    control.autoOpen = false;
    // As closing the video window does.
    QTimer::singleShot(0, &control, [this] { control.setFileName({}); });
    engine->ListClick(2, 1);
    control.autoOpen = true;
    engine->tick();
    engine->tick();
    EXPECT_EQ(loads(), 2);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_TRUE(view.looks.playEnabled);
}

/// With a drive A: texts that begin with "a:\" are found in a folder of the test.
class StartingFromDriveA : public Starting
{
protected:
    StartingFromDriveA()
    {
        context.view = &view;
        context.findFile = [this](const QString& text, const LessonFolders&) {
            return text == u"a:\\x.avi" ? path(u"floppy.avi"_s) : QString();
        };
        file(u"floppy.avi"_s);
        PlaylistEntry packet;
        packet.Clips.push_back({.Time = {}, .Text = {}, .Path = u"a:\\x.avi"_s});
        addPacket(packet);
    }

    EngineContext context{module, control, video};
    PositionSlider slider{context};
    TransportButtons transport{context, slider};
    ClipStarter starter{context, transport};
};

TEST_F(StartingFromDriveA, WithTheOptionTheScratchCopyPlays)
{
    option("r");
    home.write(u"temp.vxc"_s, "an earlier copy");
    starter.ListClick(1, 1);
    EXPECT_EQ(control.FileName(), path(u"temp.vxc"_s));
    EXPECT_EQ(home.bytes(u"temp.vxc"_s), "media");
}

TEST_F(StartingFromDriveA, WithoutTheOptionTheFloppyPlays)
{
    option("r", u"0"_s);
    starter.ListClick(1, 1);
    EXPECT_EQ(control.FileName(), path(u"floppy.avi"_s));
    EXPECT_EQ(home.bytes(u"temp.vxc"_s), QByteArray());
}

TEST_F(StartingFromDriveA, AFailedCopyLeavesThePlayerAsItWas)
{
    option("r");
    QFile::remove(path(u"floppy.avi"_s));
    starter.ListClick(1, 1);
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(clip(), 1);
}

TEST_F(Starting, AMissingFileWhileThePlayerIsPausedLeavesThePausedLooks)
{
    addClips({u"one"_s});
    addMissingClips({u"gone"_s});
    play(1, 1);
    engine->tick();
    control.Pause();
    engine->tick();
    engine->ListClick(2, 1);
    engine->tick();
    EXPECT_TRUE(view.looks.playEnabled && !view.looks.pauseEnabled);
}

} // namespace orvanta::test
