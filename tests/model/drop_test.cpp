// What files dropped on the playlist add to it.
#include "core/ini.h"
#include "core/packet_file.h"
#include "model/drop.h"
#include "model/loaders.h"
#include "tests/support/error_of.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

class Drop : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    QString clipListPacket(const QString& name, int files) const
    {
        QStringList entries;
        for (int i = 1; i <= files; ++i) {
            entries.append(u"/clips/%1.avi{}text %1"_s.arg(i));
        }
        writeClipListPacket(path(name), entries);
        return path(name);
    }

    QString brakePacket(const QString& name) const
    {
        writeBrakePacket(path(name), u"/clips/a.avi"_s, u"/clips/a.avi"_s,
                         {u"000000.00{}Start"_s, u"000005.00{}End"_s});
        return path(name);
    }

    QString emptyFile(const QString& name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path(name);
    }

    DropResult drop(const QStringList& files)
    {
        return applyDrop(m_playlist, files, u"*.avi;*.mp3"_s);
    }

    QStringList texts(Int16 p) const
    {
        QStringList all;
        for (const ClipEntry& clip : m_playlist.packet(p).Clips) {
            all.append(clip.Text);
        }
        return all;
    }

    QTemporaryDir m_folder;
    PlaylistState m_playlist;
};

/// Packet and clip of the first line that a drop added.
std::pair<int, int> firstLine(const DropResult& result)
{
    return {result.firstPacket.value(), result.firstClip.value()};
}

TEST_F(Drop, TellsTheFirstLineThatItAdded)
{
    EXPECT_EQ(firstLine(drop({u"/m/a.avi"_s, u"/m/b.avi"_s})), std::pair(1, 1));
    EXPECT_EQ(firstLine(drop({u"/m/c.avi"_s})), std::pair(1, 3));
    EXPECT_EQ(firstLine(drop({clipListPacket(u"p.vxl"_s, 2)})), std::pair(2, 1));
    EXPECT_EQ(firstLine(drop({clipListPacket(u"q.vxl"_s, 2), u"/m/d.avi"_s})), std::pair(2, 3));
}

TEST_F(Drop, TellsNoLineThatCannotBePlayed)
{
    EXPECT_EQ(firstLine(drop({clipListPacket(u"empty.vxl"_s, 0)})), std::pair(0, 0));
    EXPECT_EQ(firstLine(drop({brakePacket(u"brakes.vxl"_s)})), std::pair(2, 1));
    EXPECT_EQ(firstLine(drop({u"/m/a.avi"_s})), std::pair(0, 0)) << "a line below brakes";
}

TEST_F(Drop, ThreeClipsOnAnEmptyPlaylistMakeOnePacketInReverseDropOrder)
{
    drop({u"/m/a.avi"_s, u"/m/b.avi"_s, u"/m/c.avi"_s});
    ASSERT_EQ(m_playlist.PlaylistCount, 1);
    EXPECT_EQ(m_playlist.packet(1).Title, u"!Orvanta! 3.3"_s);
    EXPECT_EQ(m_playlist.packet(1).ClipCount, 3);
    EXPECT_EQ(texts(1), (QStringList{u"/m/c.avi"_s, u"/m/b.avi"_s, u"/m/a.avi"_s}));
}

TEST_F(Drop, ALooseClipsPathAndTextAreBothItsFullName)
{
    drop({u"/m/a.avi"_s});
    EXPECT_EQ(m_playlist.packet(1).clip(1).Path, u"/m/a.avi"_s);
    EXPECT_EQ(m_playlist.packet(1).clip(1).Text, u"/m/a.avi"_s);
}

TEST_F(Drop, ClipsGoToThePacketThatWasLastBeforeTheDropEvenABrakePacket)
{
    OpenPacket(m_playlist, brakePacket(u"brakes.vxl"_s));
    drop({u"/m/a.avi"_s, clipListPacket(u"list.vxl"_s, 2)});
    ASSERT_EQ(m_playlist.PlaylistCount, 2);
    EXPECT_EQ(m_playlist.packet(1).ClipCount, 3);
    EXPECT_EQ(m_playlist.packet(1).clip(3).Path, u"/m/a.avi"_s);
    EXPECT_EQ(m_playlist.packet(2).ClipCount, 2);
}

TEST_F(Drop, AnUpperCaseEndingIsAClip)
{
    drop({emptyFile(u"X.VXL"_s)});
    ASSERT_EQ(m_playlist.PlaylistCount, 1);
    EXPECT_EQ(m_playlist.packet(1).clip(1).Path, path(u"X.VXL"_s));
}

TEST_F(Drop, ANameThatMerelyEndsInTheLettersIsAPacket)
{
    drop({clipListPacket(u"avxl"_s, 1)});
    EXPECT_EQ(m_playlist.packet(1).clip(1).Text, u"text 1"_s);
}

TEST_F(Drop, APacketIsAppendedUnderTheProductsTitle)
{
    drop({clipListPacket(u"a.vxl"_s, 2)});
    drop({brakePacket(u"b.vxl"_s)});
    ASSERT_EQ(m_playlist.PlaylistCount, 2);
    EXPECT_EQ(m_playlist.packet(1).Title, u"!Orvanta! 3.3"_s);
    EXPECT_TRUE(m_playlist.packet(2).HasBrakes);
    EXPECT_EQ(m_playlist.packet(2).MediaFile, u"/clips/a.avi"_s);
    EXPECT_EQ(m_playlist.packet(2).ClipCount, 2);
}

TEST_F(Drop, AGroupAppendsItsPacketsAndSaysSo)
{
    OpenPacket(m_playlist, clipListPacket(u"open.vxl"_s, 1));
    const QString group = path(u"group.vxg"_s);
    WriteIni(u"main"_s, u"files"_s, u"1"_s, group);
    WriteIni(u"file1"_s, u"path"_s, clipListPacket(u"member.vxl"_s, 2), group);
    WriteIni(u"file1"_s, u"text"_s, u"Member"_s, group);
    EXPECT_TRUE(drop({group}).groupDropped);
    ASSERT_EQ(m_playlist.PlaylistCount, 2);
    EXPECT_EQ(m_playlist.packet(2).Title, u"Member"_s);
}

TEST_F(Drop, ClipsAndPacketsAloneAreNoGroup)
{
    EXPECT_FALSE(drop({u"/m/a.avi"_s, clipListPacket(u"a.vxl"_s, 1)}).groupDropped);
}

TEST_F(Drop, ALooseClipTogetherWithAPacketOnAnEmptyPlaylistGetsAPacketOfItsOwn)
{
    drop({u"/m/a.avi"_s, clipListPacket(u"a.vxl"_s, 2)});
    ASSERT_EQ(m_playlist.PlaylistCount, 2);
    EXPECT_EQ(m_playlist.packet(1).ClipCount, 2);
    EXPECT_EQ(texts(2), QStringList{u"/m/a.avi"_s});
}

TEST_F(Drop, AFolderGivesItsMatchingFilesInNameOrder)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    emptyFile(u"folder/b.avi"_s);
    emptyFile(u"folder/A.MP3"_s);
    emptyFile(u"folder/notes.txt"_s);
    drop({path(u"folder"_s)});
    EXPECT_EQ(texts(1), (QStringList{path(u"folder/A.MP3"_s), path(u"folder/b.avi"_s)}));
}

TEST_F(Drop, AFolderIsOneWhateverItsNameEndsIn)
{
    for (const QString& name : {u"old vxl"_s, u"my.vxg"_s}) {
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(name));
        emptyFile(name + u"/a.avi"_s);
    }
    EXPECT_FALSE(drop({path(u"old vxl"_s), path(u"my.vxg"_s)}).groupDropped);
    EXPECT_EQ(texts(1), (QStringList{path(u"my.vxg/a.avi"_s), path(u"old vxl/a.avi"_s)}));
}

TEST_F(Drop, ABadPacketRaisesAndKeepsTheFilesVisitedBefore)
{
    struct Row
    {
        QByteArray packet; // empty: it is not there
        int number;
    };
    for (const Row& row : {Row{"", 13}, Row{"[main]\nfiles=\n", 13}, Row{"[main]\nfiles=abc\n", 13},
                           Row{"[main]\nfiles=1\nbrakes=some\n", 13}, Row{"[main]\nfiles=-1\n", 9},
                           Row{"[main]\nfiles=40000\n", 6}}) {
        m_playlist = {};
        if (!row.packet.isEmpty()) {
            QFile file(emptyFile(u"bad.vxl"_s));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(row.packet) > 0);
        }
        EXPECT_EQ(errorOf([&] {
                      drop({path(u"bad.vxl"_s), u"/m/later.avi"_s});
                  }),
                  row.number)
            << row.packet.toStdString();
        EXPECT_EQ(texts(1), QStringList{u"/m/later.avi"_s}) << row.packet.toStdString();
    }
}

TEST_F(Drop, AbsentValuesAreStoredAsEmptyTexts)
{
    const QString packet = path(u"thin.vxl"_s);
    WriteIni(u"main"_s, u"files"_s, u"1"_s, packet);
    drop({packet});
    EXPECT_EQ(m_playlist.packet(1).clip(1).Path, QString());
    EXPECT_EQ(m_playlist.packet(1).clip(1).Text, QString());
    const QString brakes = path(u"brakes.vxl"_s);
    WriteIni(u"main"_s, u"files"_s, u"1"_s, brakes);
    WriteIni(u"main"_s, u"brakes"_s, u"2"_s, brakes);
    drop({brakes});
    EXPECT_TRUE(m_playlist.packet(2).HasBrakes);
    EXPECT_EQ(m_playlist.packet(2).MediaFile, QString());
    ASSERT_EQ(m_playlist.packet(2).ClipCount, 2);
    EXPECT_EQ(m_playlist.packet(2).clip(2).Time, QString());
    EXPECT_EQ(m_playlist.packet(2).clip(2).Text, QString());
}

} // namespace
} // namespace orvanta
