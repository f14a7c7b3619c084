#include "model/loaders.h"
#include "tests/support/error_of.h"
#include "tests/support/log_capture.h"
#include "tests/support/settings_folder.h"

#include <QDir>

#include <cstdio>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class Loaders : public testing::Test
{
protected:
    QString write(const QString& name, const QString& content)
    {
        return folder.write(name, content.toUtf8());
    }

    QString clipPacket(const QString& name)
    {
        return write(name, u"[main]\nfiles=2\n"
                           "[file1]\npath=/m/a.avi\ntext=A\n[file2]\npath=b.avi\ntext=B\n"_s);
    }

    QString brakePacket(const QString& name)
    {
        return write(name, u"[main]\nfiles=1\nfile=/m/lesson.avi\nbrakes=2\n"
                           "[brake1]\ntime=000000.00\ntext=Start\n"
                           "[brake2]\ntime=000075.40\ntext=Second\n"_s);
    }

    QString group(const QString& name, const QStringList& members)
    {
        QString text = u"[main]\nfiles=%1\n"_s.arg(members.size());
        for (qsizetype i = 1; i <= members.size(); ++i) {
            text += u"[file%1]\npath=%2\ntext=Week %1\npicture=week%1.png\n"_s.arg(
                QString::number(i), members[i - 1]);
        }
        return write(name, text);
    }

    SettingsFolder folder;
    PlaylistState playlist;
};

TEST_F(Loaders, AGroupOfABrakePacketAndAClipPacketHoldsBoth)
{
    OpenGroup(playlist, group(u"g.vxg"_s, {brakePacket(u"1.vxl"_s), clipPacket(u"2.vxl"_s)}));
    ASSERT_EQ(playlist.PlaylistCount, 2);
    const PlaylistEntry& first = playlist.packet(1);
    EXPECT_EQ(first.Title, u"Week 1");
    EXPECT_EQ(first.Picture, u"week1.png");
    EXPECT_TRUE(first.HasBrakes);
    EXPECT_EQ(first.MediaFile, u"/m/lesson.avi");
    EXPECT_EQ(first.ClipCount, 2);
    EXPECT_EQ(first.clip(2).Time, u"000075.40");
    EXPECT_EQ(first.clip(2).Text, u"Second");
    const PlaylistEntry& second = playlist.packet(2);
    EXPECT_FALSE(second.HasBrakes);
    EXPECT_EQ(second.clip(1).Path, u"/m/a.avi");
    EXPECT_EQ(second.clip(2).Text, u"B");
}

TEST_F(Loaders, AGroupKeepsTheFoldersOfItsPacketsAndItsOwn)
{
    QDir(folder.path()).mkdir(u"week"_s);
    OpenGroup(playlist, group(u"g.vxg"_s, {clipPacket(u"week/1.vxl"_s)}));
    EXPECT_EQ(playlist.packet(1).Folder, folder.path() + u"/week/"_s);
    EXPECT_EQ(playlist.packet(1).PictureFolder, folder.path() + u'/');
    EXPECT_EQ(playlist.PacketFolder, folder.path() + u'/');
}

TEST_F(Loaders, ARelativeMemberIsMeantBelowTheGroupsFolder)
{
    QDir(folder.path()).mkdir(u"week"_s);
    clipPacket(u"week/1.vxl"_s);
    for (const QString& member : {u"week/1.vxl"_s, u"week\\1.vxl"_s}) {
        OpenGroup(playlist, group(u"g.vxg"_s, {member}));
        EXPECT_EQ(playlist.packet(1).ClipCount, 2) << member.toStdString();
        EXPECT_EQ(playlist.packet(1).Folder, folder.path() + u"/week/"_s);
    }
}

TEST_F(Loaders, ThePacketsOfAGroupThatHasMovedAreFoundAndKeepTheTextsOfTheGroup)
{
    QDir(folder.path()).mkpath(u"Week 1/deep"_s);
    (void)clipPacket(u"Week 1/One.vxl"_s);
    (void)clipPacket(u"Week 1/deep/two.vxl"_s);
    const QStringList members = {u"C:\\Course\\week 1\\one.vxl"_s, u"C:\\Other\\two.vxl"_s,
                                 u"C:\\Course\\three.vxl"_s};
    OpenGroup(playlist, group(u"g.vxg"_s, members));
    EXPECT_EQ(playlist.packet(1).Origin->file, folder.file(u"Week 1/One.vxl"_s));
    EXPECT_EQ(playlist.packet(2).Origin->file, folder.file(u"Week 1/deep/two.vxl"_s));
    EXPECT_EQ(playlist.packet(3).ClipCount, 0);
    for (int p = 1; p <= 3; ++p) {
        EXPECT_EQ(playlist.packet(p).Origin->member, members[p - 1]);
    }
}

TEST_F(Loaders, AGroupReplacesThePlaylist)
{
    OpenFiles(playlist, {u"/m/a.avi"_s, u"/m/b.avi"_s});
    OpenGroup(playlist, group(u"g.vxg"_s, {clipPacket(u"1.vxl"_s)}));
    EXPECT_EQ(playlist.PlaylistCount, 1);
    EXPECT_EQ(playlist.packet(1).Title, u"Week 1");
}

TEST_F(Loaders, AMissingGroupHasNoPackets)
{
    OpenGroup(playlist, folder.file(u"gone.vxg"_s));
    EXPECT_EQ(playlist.PlaylistCount, 0);
    EXPECT_TRUE(playlist.Playlist.empty());
}

TEST_F(Loaders, AMissingMemberHasNoClips)
{
    OpenGroup(playlist, group(u"g.vxg"_s, {folder.file(u"gone.vxl"_s), clipPacket(u"2.vxl"_s)}));
    EXPECT_EQ(playlist.packet(1).ClipCount, 0);
    EXPECT_EQ(playlist.packet(1).Title, u"Week 1");
    EXPECT_EQ(playlist.packet(2).ClipCount, 2);
}

TEST_F(Loaders, AMemberThatCannotBeReadRaisesAndLeavesWhatWasRead)
{
    const QString bad = write(u"bad.vxl"_s, u"[main]\nfiles=many\n"_s);
    const QString path = group(u"g.vxg"_s, {clipPacket(u"1.vxl"_s), bad});
    EXPECT_EQ(errorOf([&] { OpenGroup(playlist, path); }), 13);
    EXPECT_EQ(playlist.PlaylistCount, 2);
    EXPECT_EQ(playlist.packet(1).ClipCount, 2);
}

TEST_F(Loaders, APacketIsTitledWithTheProgramWhateverItContains)
{
    for (const QString& path : {clipPacket(u"1.vxl"_s), brakePacket(u"2.vxl"_s)}) {
        OpenPacket(playlist, path);
        EXPECT_EQ(playlist.PlaylistCount, 1);
        EXPECT_EQ(playlist.packet(1).Title, u"!Orvanta! 3.3");
        EXPECT_EQ(playlist.packet(1).Picture, QString());
        EXPECT_EQ(playlist.packet(1).Folder, folder.path() + u'/');
        EXPECT_EQ(playlist.PacketFolder, folder.path() + u'/');
        EXPECT_EQ(playlist.packet(1).ClipCount, 2);
    }
}

TEST_F(Loaders, AMissingPacketHasNoClips)
{
    OpenPacket(playlist, folder.file(u"gone.vxl"_s));
    EXPECT_EQ(playlist.PlaylistCount, 1);
    EXPECT_EQ(playlist.packet(1).ClipCount, 0);
}

TEST_F(Loaders, CountsThatAreNoCountsRaise)
{
    struct Row
    {
        QString count;
        int error;
    };
    for (const Row& row : {Row{u"many"_s, 13}, Row{u"-1"_s, 9}, Row{u"99999"_s, 6}}) {
        const QString path = write(u"p.vxl"_s, u"[main]\nfiles=%1\n"_s.arg(row.count));
        EXPECT_EQ(errorOf([&] { OpenPacket(playlist, path); }), row.error)
            << row.count.toStdString();
        EXPECT_EQ(playlist.PlaylistCount, 1);
        EXPECT_EQ(errorOf([&] { OpenGroup(playlist, path); }), row.error);
    }
}

TEST_F(Loaders, AGroupWithoutAReadableCountLeavesWhatIsOpen)
{
    OpenFiles(playlist, {u"/m/a.avi"_s});
    const QString path = write(u"g.vxg"_s, u"[main]\nfiles=many\n"_s);
    EXPECT_EQ(errorOf([&] { OpenGroup(playlist, path); }), 13);
    EXPECT_EQ(playlist.packet(1).clip(1).Path, u"/m/a.avi");
}

TEST_F(Loaders, ABrakeCountOfZeroMakesAClipPacket)
{
    OpenPacket(playlist, write(u"p.vxl"_s, u"[main]\nfiles=1\nbrakes=0\n"
                                           "[file1]\npath=/m/a.avi\ntext=/m/a.avi\n"_s));
    EXPECT_FALSE(playlist.packet(1).HasBrakes);
    EXPECT_EQ(playlist.packet(1).clip(1).Text, u"/m/a.avi");
}

TEST_F(Loaders, LooseFilesMakeOnePacketWithTheirClipNames)
{
    OpenFiles(playlist, {u"d:\\media\\intro.avi"_s, u"/m/My film.part1.mpg"_s, u"/m/README"_s});
    EXPECT_EQ(playlist.PlaylistCount, 1);
    EXPECT_EQ(playlist.packet(1).Title, u"!Orvanta! 3.3");
    EXPECT_EQ(playlist.packet(1).Folder, QString());
    EXPECT_EQ(playlist.packet(1).clip(1).Text, u"intro");
    EXPECT_EQ(playlist.packet(1).clip(1).Path, u"d:\\media\\intro.avi");
    EXPECT_EQ(playlist.packet(1).clip(2).Text, u"My film.part1");
    EXPECT_EQ(playlist.packet(1).clip(3).Text, QString());
}

TEST_F(Loaders, MoreLooseFilesThanAListHoldsRaiseOverflow)
{
    OpenFiles(playlist, {u"/m/a.avi"_s});
    const QStringList many(32768, u"/m/b.avi"_s);
    EXPECT_EQ(errorOf([&] { OpenFiles(playlist, many); }), 6);
    EXPECT_EQ(playlist.packet(1).clip(1).Path, u"/m/a.avi"); // what was open stays
}

TEST_F(Loaders, AppendingKeepsWhatIsOpen)
{
    OpenFiles(playlist, {u"/m/a.avi"_s});
    appendPacket(playlist, clipPacket(u"1.vxl"_s));
    appendGroup(playlist, group(u"g.vxg"_s, {brakePacket(u"2.vxl"_s)}));
    EXPECT_EQ(playlist.PlaylistCount, 3);
    EXPECT_EQ(playlist.packet(1).clip(1).Path, u"/m/a.avi");
    EXPECT_EQ(playlist.packet(2).Title, u"!Orvanta! 3.3");
    EXPECT_TRUE(playlist.packet(3).HasBrakes);
}

TEST_F(Loaders, AppendingMorePacketsThanAListHoldsRaisesOverflow)
{
    playlist.PlaylistCount = 32767;
    EXPECT_EQ(errorOf([&] { appendEmptyPacket(playlist); }), 6);
    EXPECT_EQ(playlist.PlaylistCount, 32767);
    EXPECT_TRUE(playlist.Playlist.empty());
}

/// A group of 31 packets of 32,767 clips: more than may be open at once.
static QString hugeGroup(const SettingsFolder& folder)
{
    folder.write(u"many.vxl"_s, "[main]\nfiles=32767\n");
    QByteArray text = "[main]\nfiles=31\n";
    for (int i = 1; i <= 31; ++i) {
        text += "[file" + QByteArray::number(i) + "]\npath=many.vxl\n";
    }
    return folder.write(u"huge.vxg"_s, text);
}

TEST_F(Loaders, AGroupOfMoreThanAMillionEntriesIsOutOfMemoryAndLeavesWhatIsOpen)
{
    const QString huge = hugeGroup(folder);
    clipPacket(u"a.vxl"_s);
    OpenGroup(playlist, group(u"small.vxg"_s, {u"a.vxl"_s}));
    for (const auto& load : {OpenGroup, appendGroup}) {
        EXPECT_EQ(errorOf([&] { load(playlist, huge); }), 7);
        EXPECT_EQ(playlist.PlaylistCount, 1);
        EXPECT_EQ(playlist.Document, folder.file(u"small.vxg"_s));
        EXPECT_EQ(playlist.packet(1).clip(2).Text, u"B");
    }
}

TEST_F(Loaders, APacketThatThereIsNoRoomForIsNotAppended)
{
    const QString huge = hugeGroup(folder);
    WriteIni(u"main"_s, u"files"_s, u"30"_s, huge);
    OpenGroup(playlist, huge);
    appendPacket(playlist, clipPacket(u"a.vxl"_s));
    EXPECT_EQ(playlist.PlaylistCount, 31);
    EXPECT_EQ(errorOf([&] { appendPacket(playlist, folder.file(u"many.vxl"_s)); }), 7);
    EXPECT_EQ(playlist.PlaylistCount, 31);
    EXPECT_EQ(playlist.entryCount(), 30 * 32767 + 2);
}

TEST_F(Loaders, AClipIsAppendedToTheNamedPacket)
{
    OpenFiles(playlist, {u"/m/a.avi"_s});
    appendEmptyPacket(playlist);
    appendClip(playlist, 1, u"/m/b.avi"_s, u"b"_s);
    EXPECT_EQ(playlist.packet(1).ClipCount, 2);
    EXPECT_EQ(playlist.packet(1).clip(2).Text, u"b");
    EXPECT_EQ(errorOf([&] { appendClip(playlist, 3, {}, {}); }), 9);
}

TEST_F(Loaders, AFullPacketTakesNoFurtherClip)
{
    const Int16 p = appendEmptyPacket(playlist);
    playlist.packet(p).ClipCount = 32767;
    EXPECT_EQ(errorOf([&] { appendClip(playlist, p, {}, {}); }), 6);
    EXPECT_TRUE(playlist.packet(p).Clips.empty());
}

TEST_F(Loaders, LoadingIsLogged)
{
    const LogCapture log("orvanta.playlist");
    OpenFiles(playlist, {u"/m/a.avi"_s, u"/m/b.avi"_s});
    appendEmptyPacket(playlist);
    logLoaded(playlist);
    EXPECT_EQ(log.lines(), QStringList(u"loaded 2 packets, 2 entries"_s));
}

TEST_F(Loaders, FilesOfAFolderMatchThePatternInAnyCaseInNameOrder)
{
    for (const char* name : {"c.avi", "B.AVI", "a.mp3", "d.txt", "avi", ".e.avi"}) {
        folder.write(QString::fromLatin1(name), "media");
    }
    const QStringList files = filesOfFolder(folder.path(), u"*.avi;*.mp3"_s);
    EXPECT_EQ(files, (QStringList{folder.file(u"a.mp3"_s), folder.file(u"B.AVI"_s),
                                  folder.file(u"c.avi"_s)}));
    EXPECT_EQ(filesOfFolder(folder.path() + u'/', u"*.avi;*.mp3"_s), files);
}

TEST_F(Loaders, NumbersInTheNamesOfAFoldersFilesCountByValue)
{
    QStringList expected;
    for (const QString& name : {u"lesson 1.avi"_s, u"lesson 2.avi"_s, u"lesson 10.avi"_s}) {
        folder.write(name, "media");
        expected.append(folder.file(name));
    }
    EXPECT_EQ(filesOfFolder(folder.path(), u"*.avi"_s), expected);
}

TEST_F(Loaders, FilesOfAFolderAreRegularFiles)
{
    QDir(folder.path()).mkdir(u"folder.avi"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.file(u"fifo.avi"_s)).constData(), 0600), 0);
    EXPECT_EQ(filesOfFolder(folder.path(), u"*.avi"_s), QStringList());
}

TEST_F(Loaders, AFolderThatDoesNotExistHasNoFiles)
{
    EXPECT_EQ(filesOfFolder(folder.file(u"gone"_s), u"*.avi"_s), QStringList());
}

TEST_F(Loaders, ANameThatNoTextCanHoldIsLeftOutAndLogged)
{
    const QByteArray name = QFile::encodeName(folder.path()) + "/caf\xe9.avi";
    FILE* file = std::fopen(name.constData(), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    const LogCapture log("orvanta.errors");
    EXPECT_EQ(filesOfFolder(folder.path(), u"*.avi"_s), QStringList());
    EXPECT_EQ(log.lines().size(), 1);
    std::remove(name.constData());
}

TEST(Playlist, APacketOutsideItRaises)
{
    PlaylistState playlist;
    EXPECT_THROW((void)playlist.packet(0), RuntimeError);
    EXPECT_THROW((void)playlist.packet(1), RuntimeError);
    EXPECT_THROW((void)playlist.packet(-1), RuntimeError);
}

} // namespace orvanta::test
