// Which files of what is open are missing, and where those of a folder that has moved lie.
#include "model/missing_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class MissingFiles : public testing::Test
{
protected:
    MissingFiles() { beginSearches(); }

    QString put(const QString& name) const
    {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("media") == 5);
        return path;
    }

    [[nodiscard]] NamedFile named(const QString& text, int clip = 1) const
    {
        return {1, clip, text, {.packet = folder.path()}, false};
    }

    static bool always() { return true; }
    static bool never() { return false; }

    QTemporaryDir folder;
};

PlaylistEntry packetWithClips(const QStringList& paths)
{
    PlaylistEntry packet;
    for (const QString& path : paths) {
        packet.Clips.push_back({.Time = {}, .Text = path, .Path = path});
    }
    packet.ClipCount = static_cast<qint64>(paths.size());
    return packet;
}

} // namespace

TEST_F(MissingFiles, AreLookedForAmongAllThatIsNamedInItsOrder)
{
    PlaylistEntry clips = packetWithClips({u"a.avi"_s, u"b.avi"_s});
    clips.Folder = u"/lessons/one"_s;
    PlaylistEntry film = packetWithClips({{}, {}});
    film.HasBrakes = true;
    film.MediaFile = u"film.avi"_s;
    PlaylistState playlist;
    playlist.PacketFolder = u"/lessons"_s;
    playlist.Playlist = {clips, film};
    playlist.PlaylistCount = 2;

    const std::vector<NamedFile> files = namedFiles(playlist);
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].text, u"a.avi");
    EXPECT_EQ(files[0].folders.packet, u"/lessons/one");
    EXPECT_EQ(files[1].clip, 2);
    EXPECT_EQ(files[2].packet, 2);
    EXPECT_EQ(files[2].clip, 0);
    EXPECT_EQ(files[2].text, u"film.avi");
    EXPECT_EQ(files[2].folders.packet, u"/lessons");
}

TEST_F(MissingFiles, AreThoseThatLieNowhere)
{
    put(u"here.avi"_s);
    const std::vector<MissingFile> missing =
        missingFiles({named(u"here.avi"_s), named(u"gone.avi"_s, 2)}, always);
    ASSERT_EQ(missing.size(), 1U);
    EXPECT_EQ(missing[0].file.clip, 2);
    EXPECT_FALSE(missing[0].isRefused);
}

TEST_F(MissingFiles, AreRefusedWhenWhatIsNamedIsNoFileToBePlayed)
{
    const std::vector<MissingFile> missing =
        missingFiles({named(u"http://example.org/a.avi"_s)}, always);
    ASSERT_EQ(missing.size(), 1U);
    EXPECT_TRUE(missing[0].isRefused);
}

TEST_F(MissingFiles, AreNotLookedForAnyMoreWhenThatIsNotWanted)
{
    EXPECT_TRUE(missingFiles({named(u"gone.avi"_s)}, never).empty());
    EXPECT_TRUE(foldersMovedTo(folder.path(), {{named(u"gone.avi"_s), false}}, never).empty());
}

TEST_F(MissingFiles, ShowAFolderThatHasMovedOnce)
{
    put(u"new/films/a.avi"_s);
    put(u"new/films/b.avi"_s);
    const std::vector<MissingFile> missing = {{named(u"/old/films/a.avi"_s), false},
                                              {named(u"/old/films/b.avi"_s, 2), false}};
    const std::vector<MovedFolder> moved =
        foldersMovedTo(folder.filePath(u"new"_s), missing, always);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_EQ(moved[0].from, u"/old");
    EXPECT_EQ(moved[0].to, folder.filePath(u"new"_s));
}

TEST_F(MissingFiles, OfAnotherFolderShowNoFolder)
{
    put(u"new/other.avi"_s);
    EXPECT_TRUE(foldersMovedTo(folder.filePath(u"new"_s), {{named(u"/old/a.avi"_s), false}}, always)
                    .empty());
}

TEST_F(MissingFiles, WithARelativeTextAreMeantBelowTheirDocument)
{
    put(u"new/films/a.avi"_s);
    NamedFile relative = named(u"films/a.avi"_s);
    relative.folders.packet = u"/lessons"_s;
    const std::vector<MovedFolder> moved =
        foldersMovedTo(folder.filePath(u"new"_s), {{relative, false}}, always);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_EQ(moved[0].from, u"/lessons");
    EXPECT_EQ(moved[0].to, folder.filePath(u"new"_s));
}

TEST(Playlists, NameTheDocumentsThatTheyCameFromEachOnce)
{
    PlaylistState playlist;
    EXPECT_TRUE(playlist.documents().isEmpty());
    const auto from = [](const QString& file) {
        PlaylistEntry packet;
        packet.Origin = std::make_shared<PacketOrigin>();
        packet.Origin->file = file;
        return packet;
    };
    playlist.Playlist = {from(u"/a.vxl"_s), from({}), from(u"/b.vxl"_s), from(u"/a.vxl"_s),
                         PlaylistEntry()};
    EXPECT_EQ(playlist.documents(), (QStringList{u"/a.vxl"_s, u"/b.vxl"_s}));
    playlist.Document = u"/all.vxg"_s;
    EXPECT_EQ(playlist.documents(), QStringList(u"/all.vxg"_s));
}

} // namespace orvanta::test
