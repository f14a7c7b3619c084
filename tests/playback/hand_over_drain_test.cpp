#include "tests/playback/engine_fixture.h"
#include "tests/support/plain_user.h"

#include <QDir>

namespace orvanta::test {

class HandOver : public EngineTest
{
protected:
    void serve(const QStringList& lines)
    {
        queue(lines);
        engine->tick();
        waitUntilOpened();
    }

    QString packetFile(const QString& name, const QString& clip)
    {
        return home.write(name, u"[main]\nfiles=1\n[file1]\npath=%1\ntext=%2\n"_s
                                    .arg(file(clip + u".avi"_s), clip)
                                    .toUtf8());
    }

    [[nodiscard]] int packets() const { return module.playlist.PlaylistCount.value(); }
    [[nodiscard]] const PlaylistEntry& entry(Int16 p) const { return module.playlist.packet(p); }
};

TEST_F(HandOver, AnEmptyQueueChangesNothing)
{
    addClips({u"one"_s});
    serve({});
    EXPECT_EQ(packets(), 1);
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
}

TEST_F(HandOver, IsServedAndResetWhetherOrNotTheTrayOptionIsOn)
{
    for (const QString& tray : {u"0"_s, u"1"_s}) {
        option("si", tray);
        serve({file(u"clip.avi"_s)});
        EXPECT_EQ(home.value("ftl", "num"), u"0") << tray.toStdString();
        EXPECT_EQ(home.value("ftl", "wr"), u"0") << tray.toStdString();
        EXPECT_EQ(packets(), 1);
        emptyPlaylist();
    }
}

TEST_F(HandOver, IsReadAsWorkThatMayBeLong)
{
    serve({packetFile(u"a.vxl"_s, u"a"_s), packetFile(u"b.vxl"_s, u"b"_s)});
    EXPECT_EQ(view.packetsAfterBusyWork, std::vector{2});
    engine->openAndPlay(packetFile(u"c.vxl"_s, u"c"_s));
    EXPECT_EQ(view.packetsAfterBusyWork, (std::vector{2, 1}));
}

TEST_F(HandOver, WhatTheSettingsCouldNotTakeIsOpenedFromMemory)
{
    module.HandedOver = {packetFile(u"a.vxl"_s, u"a"_s)};
    serve({});
    EXPECT_EQ(packets(), 1);
    EXPECT_EQ(entry(1).clip(1).Text, u"a");
    EXPECT_TRUE(module.HandedOver.isEmpty());
}

TEST_F(HandOver, LinesThatCannotBeTakenOutOfTheSettingsAreOpenedOnce)
{
    EXPECT_TRUE(holdsForPlainUser([this] {
        const SettingsFolder theirs("[ftl]\r\nwr=0\r\nnum=1\r\n1=/a.avi\r\n");
        ASSERT_TRUE(QFile::setPermissions(theirs.ini(), QFile::ReadOwner));
        ASSERT_TRUE(QFile::setPermissions(theirs.path(), QFile::ReadOwner | QFile::ExeOwner));
        module.IniPath = theirs.ini();
        const int before = module.playlist.revision;
        engine->tick();
        const int opened = module.playlist.revision;
        EXPECT_GT(opened, before);
        engine->tick();
        EXPECT_EQ(module.playlist.revision, opened);
        QFile::setPermissions(theirs.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }));
}

TEST_F(HandOver, MoreThanCanBeOpenLeavesWhatIsOpen)
{
    serve({packetFile(u"a.vxl"_s, u"a"_s)});
    home.write(u"many.vxl"_s, "[main]\nfiles=32767\n");
    QByteArray huge = "[main]\nfiles=31\n";
    for (int i = 1; i <= 31; ++i) {
        huge += "[file" + QByteArray::number(i) + "]\npath=many.vxl\n";
    }
    const QString group = home.write(u"huge.vxg"_s, huge);
    serve({group});
    EXPECT_EQ(packets(), 1);
    engine->openAndPlay(group);
    EXPECT_EQ(packets(), 1);
    EXPECT_EQ(entry(1).clip(1).Text, u"a");
}

TEST_F(HandOver, WhatCannotBeOpenedLeavesWhatIsOpen)
{
    serve({packetFile(u"a.vxl"_s, u"a"_s)});
    module.playlist.OpenedFromExplorer = false;
    home.write(u"many.vxl"_s, "[main]\nfiles=many\n");
    QDir(home.path()).mkdir(u"empty"_s);
    for (const QString& line : {path(u"gone.vxl"_s), path(u"gone.vxg"_s), path(u"gone.avi"_s),
                                path(u"many.vxl"_s), u"/f"_s + path(u"empty"_s)}) {
        serve({line});
        ASSERT_EQ(packets(), 1) << line.toStdString();
        EXPECT_EQ(entry(1).ClipCount, 1) << line.toStdString();
        EXPECT_FALSE(module.playlist.OpenedFromExplorer);
        EXPECT_TRUE(view.clipText.endsWith(QFileInfo(line).fileName()))
            << view.clipText.toStdString();
    }
    const QString none = home.write(u"none.vxl"_s, "[main]\nfiles=0\n");
    serve({none});
    EXPECT_EQ(entry(1).ClipCount, 0) << "a packet without clips is one";
    serve({path(u"gone.avi"_s), packetFile(u"b.vxl"_s, u"b"_s)});
    EXPECT_EQ(packets(), 2);
}

TEST_F(HandOver, NotesThatTheShellOpenedTheFiles)
{
    serve({file(u"clip.avi"_s)});
    EXPECT_TRUE(module.playlist.OpenedFromExplorer);
}

TEST_F(HandOver, AClipGoesIntoAPacketWithTheProgramsTitle)
{
    serve({file(u"intro.avi"_s)});
    EXPECT_EQ(entry(1).Title, u"!Orvanta! 3.3");
    EXPECT_EQ(entry(1).clip(1).Text, u"intro");
    EXPECT_EQ(entry(1).clip(1).Path, path(u"intro.avi"_s));
    EXPECT_EQ(view.lines.size(), 3U);
}

TEST_F(HandOver, ThePacketIsRecognisedInAnyCase)
{
    serve({packetFile(u"LESSON.VXL"_s, u"one"_s)});
    EXPECT_EQ(entry(1).clip(1).Text, u"one");
}

TEST_F(HandOver, AGroupIsOpened)
{
    const QString member = packetFile(u"week1.vxl"_s, u"one"_s);
    const QString group =
        home.write(u"weeks.vxg"_s,
                   u"[main]\nfiles=1\n[file1]\npath=%1\ntext=Week one\n"_s.arg(member).toUtf8());
    serve({group});
    EXPECT_EQ(entry(1).Title, u"Week one");
    EXPECT_EQ(entry(1).clip(1).Text, u"one");
}

TEST_F(HandOver, QuotationMarksAroundAPathAreNoPartOfIt)
{
    serve({u"\"\""_s + file(u"intro.avi"_s) + u"\"\""_s});
    EXPECT_EQ(entry(1).clip(1).Path, path(u"intro.avi"_s));
}

TEST_F(HandOver, TheFirstEntryReplacesThePlaylistAndTheOthersAppend)
{
    addClips({u"old"_s});
    addClips({u"older"_s});
    serve({packetFile(u"a.vxl"_s, u"one"_s), packetFile(u"b.vxl"_s, u"two"_s)});
    EXPECT_EQ(packets(), 2);
    EXPECT_EQ(entry(1).clip(1).Text, u"one");
    EXPECT_EQ(entry(2).clip(1).Text, u"two");
}

TEST_F(HandOver, LooseClipsOfOneDrainShareOnePacket)
{
    serve({file(u"a.avi"_s), packetFile(u"b.vxl"_s, u"two"_s), file(u"c.avi"_s)});
    EXPECT_EQ(packets(), 2);
    EXPECT_EQ(entry(1).ClipCount, 2);
    EXPECT_EQ(entry(1).clip(2).Text, u"c");
}

TEST_F(HandOver, TheFolderSwitchListsTheFilesOfThePlayableTypes)
{
    QDir(home.path()).mkdir(u"films"_s);
    for (const char* name : {"b.AVI", "a.mp3", "notes.txt", ".hidden.avi"}) {
        home.write(u"films/"_s + QString::fromLatin1(name), "media");
    }
    for (const QString& line : {u"/f"_s, u"/F"_s}) {
        serve({line + path(u"films"_s)});
        EXPECT_EQ(packets(), 1);
        EXPECT_EQ(entry(1).ClipCount, 2);
        EXPECT_EQ(entry(1).clip(1).Path, path(u"films/a.mp3"_s));
        EXPECT_EQ(entry(1).clip(2).Text, u"b");
    }
}

TEST_F(HandOver, APathThatLooksLikeTheSwitchButExistsIsAFile)
{
    // A relative line, so that it can begin with the switch and exist.
    serve({u"/f"_s + path(u"films/a.avi"_s)}); // absolute, exists nowhere
    EXPECT_EQ(module.playlist.entryCount(), 0);
    serve({u"/films/gone.avi"_s}); // what follows "/f" is no absolute path
    EXPECT_EQ(entry(1).clip(1).Path, u"/films/gone.avi");
}

TEST_F(HandOver, WithAutoStartTheFirstClipPlays)
{
    option("as");
    serve({file(u"intro.avi"_s)});
    EXPECT_EQ(runningFile(), path(u"intro.avi"_s));
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(HandOver, WithoutAutoStartThePlayerIsStoppedAndTheDisplayReset)
{
    playClips({u"old"_s});
    view.findText = u"searched"_s;
    serve({file(u"intro.avi"_s)});
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(view.currentTime, u"0.00");
    EXPECT_EQ(view.findText, QString());
    EXPECT_EQ(view.clipText, QString());
    EXPECT_TRUE(view.looks.playEnabled);
    EXPECT_FALSE(view.looks.playSwapped);
    EXPECT_FALSE(view.looks.pauseSwapped);
}

TEST_F(HandOver, WithNothingLoadedAutoStartStartsNothing)
{
    option("as");
    QDir(home.path()).mkdir(u"empty"_s);
    serve({u"/f"_s + path(u"empty"_s)});
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(view.clipText, QString());
    EXPECT_EQ(home.value("ftl", "num"), u"0");
}

TEST_F(HandOver, AMissingPacketHasNoClips)
{
    serve({path(u"gone.vxl"_s)});
    EXPECT_EQ(packets(), 1);
    EXPECT_EQ(entry(1).ClipCount, 0);
}

TEST_F(HandOver, AnEntryThatCannotBeReadIsPassedOver)
{
    const QString bad = home.write(u"bad.vxl"_s, "[main]\nfiles=many\n");
    serve({bad, packetFile(u"good.vxl"_s, u"one"_s)});
    EXPECT_EQ(packets(), 2);
    EXPECT_EQ(entry(2).clip(1).Text, u"one");
    EXPECT_EQ(home.value("ftl", "wr"), u"0");
}

TEST_F(HandOver, ACountThatIsNoNumberIsResetAndPassedOver)
{
    WriteIni(u"ftl"_s, u"num"_s, u"many"_s, module.IniPath);
    addClips({u"old"_s});
    engine->tick();
    EXPECT_EQ(home.value("ftl", "num"), u"0");
    EXPECT_EQ(home.value("ftl", "wr"), u"0");
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
}

TEST_F(HandOver, AKeptProgramIsShownAndBroughtToTheFront)
{
    serve({file(u"a.avi"_s)});
    EXPECT_EQ(view.shown, 0);
    option("nc");
    serve({file(u"a.avi"_s)});
    EXPECT_EQ(view.shown, 1);
    EXPECT_EQ(view.timer3Enabled, 1);
}

TEST_F(HandOver, IsLoggedOnce)
{
    const LogCapture log("orvanta.playlist");
    serve({file(u"a.avi"_s), packetFile(u"b.vxl"_s, u"two"_s)});
    EXPECT_EQ(log.lines(), QStringList(u"loaded 2 packets, 2 entries"_s));
}

TEST_F(HandOver, LaterLinesAreMeantBelowTheFolderOfTheFirst)
{
    const QString first = packetFile(u"first.vxl"_s, u"one"_s);
    packetFile(u"second.vxl"_s, u"two"_s);
    const QString clip = file(u"loose.avi"_s);
    const QString before = QDir::currentPath();
    serve({first, u"second.vxl"_s, u"loose.avi"_s});
    ASSERT_EQ(packets(), 3);
    EXPECT_EQ(entry(2).clip(1).Text, u"two");
    EXPECT_EQ(entry(3).clip(1).Path, clip);
    EXPECT_EQ(QDir::currentPath(), before);
}

} // namespace orvanta::test
