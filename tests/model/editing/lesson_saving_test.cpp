// Saving what was edited, the versions before, and drafts.
#include "core/earlier_versions.h"
#include "model/editing/drafts.h"
#include "model/editing/lesson_saving.h"
#include "model/loaders.h"
#include "tests/model/editing/lesson_room.h"
#include "tests/support/error_of.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class SavedLesson : public testing::Test
{
protected:
    ~SavedLesson() override { setVersionsFolder({}); }

    QString packetFile()
    {
        return folder.write(u"a.vxl"_s, "[about]\r\nauthor=Ann\r\n[main]\r\nfiles=3\r\nlevel=2\r\n"
                                        "[file1]\r\npath=/m/1.mp4\r\ntext=one\r\nnote=first\r\n"
                                        "[file2]\r\npath=b.mp4\r\ntext=two\r\nnote=second\r\n"
                                        "[file3]\r\npath=/m/3.mp4\r\ntext=three\r\n");
    }
    QString groupFile()
    {
        packetFile();
        folder.write(u"b.vxl"_s,
                     "[main]\nfile=/m/f.mp4\nbrakes=2\nfiles=1\n"
                     "[brake1]\ntime=000000.00\ntext=s\n[brake2]\ntime=000009.00\ntext=e\n");
        return folder.write(u"g.vxg"_s,
                            "[main]\nfiles=2\n[file1]\npath=a.vxl\ntext=A\npicture=p.png\n"
                            "mood=calm\n[file2]\npath=b.vxl\ntext=B\npicture=\n");
    }
    void open(const QString& path)
    {
        (isGroupPath(path) ? OpenGroup : OpenPacket)(playlist, path);
        saving.begin();
        editing.begin();
    }
    [[nodiscard]] QString value(const QString& name, const QString& section,
                                const QString& key) const
    {
        return ReadIni(section, key, folder.file(name));
    }

    SettingsFolder folder;
    PlaylistState playlist;
    LessonEditing editing{playlist};
    LessonSaving saving{playlist};
};

TEST_F(SavedLesson, KeepsWhatItDoesNotKnowWithTheLineItBelongsTo)
{
    open(packetFile());
    editing.moveBy({{1, 1}}, 1);
    editing.remove({{1, 3}});
    saving.save(playlist.Document);
    EXPECT_EQ(value(u"a.vxl"_s, u"about"_s, u"author"_s), u"Ann");
    EXPECT_EQ(value(u"a.vxl"_s, u"main"_s, u"level"_s), u"2");
    EXPECT_EQ(value(u"a.vxl"_s, u"main"_s, u"files"_s), u"2");
    EXPECT_EQ(value(u"a.vxl"_s, u"file1"_s, u"text"_s), u"two");
    EXPECT_EQ(value(u"a.vxl"_s, u"file1"_s, u"note"_s), u"second");
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"note"_s), u"first");
    EXPECT_FALSE(folder.bytes(u"a.vxl"_s).contains("[file3]"));
}

TEST_F(SavedLesson, KeepsTheUnknownOfALineWhoseTextChanged)
{
    open(packetFile());
    editing.setText({1, 2}, u"zwei"_s);
    saving.save(playlist.Document);
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"text"_s), u"zwei");
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"note"_s), u"second");
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"path"_s), u"b.mp4");
}

TEST_F(SavedLesson, IsReadAsTheOtherKindOnceItHasBrakesOrNone)
{
    open(folder.write(u"c.vxl"_s, "[main]\nfiles=1\n[file1]\npath=/m/1.mp4\ntext=one\n"));
    ASSERT_TRUE(editing.mark({{1, 1}, 20, u"End"_s}, {5, u"five"_s}));
    saving.save(playlist.Document);
    OpenPacket(playlist, folder.file(u"c.vxl"_s));
    EXPECT_TRUE(playlist.packet(1).HasBrakes);
    EXPECT_EQ(playlist.packet(1).MediaFile, u"/m/1.mp4");
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"five"_s, u"End"_s}));
    editing.begin();
    editing.remove({{1, 1}, {1, 2}});
    saving.save(playlist.Document);
    OpenPacket(playlist, folder.file(u"c.vxl"_s));
    EXPECT_FALSE(playlist.packet(1).HasBrakes);
    EXPECT_EQ(playlist.packet(1).clip(1).Path, u"/m/1.mp4");
}

TEST_F(SavedLesson, WritesOnlyThePacketsThatChanged)
{
    open(groupFile());
    const QByteArray other = folder.bytes(u"a.vxl"_s);
    editing.setText({2, 1}, u"start"_s);
    editing.setText({1, 0}, u"Alpha"_s);
    saving.save(playlist.Document);
    EXPECT_EQ(folder.bytes(u"a.vxl"_s), other);
    EXPECT_EQ(value(u"b.vxl"_s, u"brake1"_s, u"text"_s), u"start");
    EXPECT_EQ(value(u"g.vxg"_s, u"file1"_s, u"text"_s), u"Alpha");
    EXPECT_EQ(value(u"g.vxg"_s, u"file1"_s, u"path"_s), u"a.vxl");
    EXPECT_EQ(value(u"g.vxg"_s, u"file1"_s, u"mood"_s), u"calm");
    EXPECT_EQ(value(u"g.vxg"_s, u"file1"_s, u"picture"_s), u"p.png");
}

TEST_F(SavedLesson, GivesANewPacketAFileBesideItsGroup)
{
    folder.write(u"two.vxl"_s, "somebody else's");
    open(groupFile());
    ASSERT_TRUE(editing.mark({{1, 2}, 20, u"End"_s}, {5, u"five"_s}));
    saving.save(playlist.Document);
    EXPECT_EQ(folder.bytes(u"two.vxl"_s), "somebody else's");
    EXPECT_EQ(value(u"g.vxg"_s, u"main"_s, u"files"_s), u"3");
    EXPECT_EQ(value(u"g.vxg"_s, u"file2"_s, u"path"_s), u"two 2.vxl");
    OpenGroup(playlist, folder.file(u"g.vxg"_s));
    ASSERT_EQ(playlist.PlaylistCount, 3);
    EXPECT_TRUE(playlist.packet(2).HasBrakes);
    EXPECT_EQ(playlist.packet(2).MediaFile, u"b.mp4");
}

TEST_F(SavedLesson, NeedsToBeToldWhereToWhenItHasNoDocumentOfItsOwn)
{
    open(packetFile());
    EXPECT_FALSE(saving.needsTarget());
    ASSERT_TRUE(editing.mark({{1, 2}, 20, u"End"_s}, {5, u"five"_s}));
    EXPECT_TRUE(saving.needsTarget());
    EXPECT_FALSE(saving.fitsPacket());
    EXPECT_EQ(errorOf([&] { saving.save(folder.file(u"new.vxl"_s)); }), 5);
    EXPECT_FALSE(QFileInfo::exists(folder.file(u"new.vxl"_s)));
    OpenFiles(playlist, {u"/m/1.mp4"_s});
    EXPECT_TRUE(saving.needsTarget());
}

TEST_F(SavedLesson, LeavesTheOriginalsAloneWhenItIsSavedElsewhere)
{
    open(groupFile());
    const QByteArray original = folder.bytes(u"a.vxl"_s);
    const QByteArray group = folder.bytes(u"g.vxg"_s);
    QDir(folder.path()).mkdir(u"new"_s);
    editing.setText({1, 2}, u"zwei"_s);
    saving.save(folder.file(u"new/h.vxg"_s));
    EXPECT_EQ(folder.bytes(u"a.vxl"_s), original);
    EXPECT_EQ(folder.bytes(u"g.vxg"_s), group);
    EXPECT_EQ(value(u"new/h.vxg"_s, u"file1"_s, u"path"_s), u"A.vxl");
    EXPECT_EQ(value(u"new/h.vxg"_s, u"file2"_s, u"path"_s), folder.file(u"b.vxl"_s));
    EXPECT_EQ(value(u"new/h.vxg"_s, u"file1"_s, u"picture"_s), folder.file(u"p.png"_s));
    EXPECT_EQ(value(u"new/A.vxl"_s, u"file2"_s, u"path"_s), folder.file(u"b.mp4"_s));
    EXPECT_EQ(value(u"new/A.vxl"_s, u"about"_s, u"author"_s), u"Ann");
    editing.setText({1, 1}, u"eins"_s);
    saving.save(playlist.Document);
    EXPECT_EQ(folder.bytes(u"a.vxl"_s), original);
    EXPECT_EQ(value(u"new/A.vxl"_s, u"file1"_s, u"text"_s), u"eins");
}

TEST_F(SavedLesson, StaysWithItsFilesWhenItCannotBeSavedElsewhere)
{
    open(groupFile());
    const QByteArray original = folder.bytes(u"a.vxl"_s);
    QDir(folder.path()).mkpath(u"new/h.vxg"_s); // a folder where the group's file should be
    editing.setText({1, 2}, u"zwei"_s);
    EXPECT_EQ(errorOf([&] { saving.save(folder.file(u"new/h.vxg"_s)); }), 75);
    EXPECT_EQ(playlist.Document, folder.file(u"g.vxg"_s));
    EXPECT_EQ(playlist.packet(1).clip(2).Path, u"b.mp4");
    EXPECT_EQ(playlist.packet(1).Picture, u"p.png");
    EXPECT_EQ(folder.bytes(u"a.vxl"_s), original);
    saving.save(playlist.Document);
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"text"_s), u"zwei");
    EXPECT_EQ(value(u"a.vxl"_s, u"file2"_s, u"path"_s), u"b.mp4");
    EXPECT_EQ(value(u"g.vxg"_s, u"file1"_s, u"path"_s), u"a.vxl");
}

TEST_F(SavedLesson, KeepsTheLastTenVersionsOfEachDocument)
{
    setVersionsFolder(folder.file(u"versions"_s));
    open(packetFile());
    const QByteArray first = folder.bytes(u"a.vxl"_s);
    saving.save(playlist.Document);
    std::vector<EarlierVersion> versions = earlierVersions(playlist.Document);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(versions[0].size, first.size());
    for (int i = 0; i < 12; ++i) {
        editing.setText({1, 1}, u"text "_s + QString::number(i));
        saving.save(playlist.Document);
    }
    versions = earlierVersions(playlist.Document);
    ASSERT_EQ(versions.size(), 10U);
    EXPECT_GT(versions[0].kept, versions[9].kept);
    EXPECT_EQ(ReadIni(u"file1"_s, u"text"_s, versions[0].file), u"text 10");
    EXPECT_EQ(ReadIni(u"file1"_s, u"text"_s, versions[9].file), u"text 1");
    restoreEarlierVersion(versions[9], playlist.Document);
    EXPECT_EQ(value(u"a.vxl"_s, u"file1"_s, u"text"_s), u"text 1");
    EXPECT_EQ(ReadIni(u"file1"_s, u"text"_s, earlierVersions(playlist.Document)[0].file),
              u"text 11");
}

TEST_F(SavedLesson, KeepsItsDraftUntilItIsDiscarded)
{
    const Drafts drafts(folder.path());
    open(groupFile());
    editing.setText({2, 1}, u"start"_s);
    editing.setText({1, 0}, u"Alpha"_s);
    ASSERT_TRUE(editing.mark({{1, 2}, 20, u"End"_s}, {5, u"five"_s}));
    ASSERT_TRUE(drafts.keep(playlist, saving.saved()));
    const QString changed = wholeTextOf(playlist);
    const QString document = playlist.Document;
    open(document);
    EXPECT_NE(wholeTextOf(playlist), changed);
    ASSERT_TRUE(drafts.of(document));
    ASSERT_EQ(drafts.all().size(), 1U);
    EXPECT_EQ(drafts.all()[0].document, document);
    auto packets = drafts.packets(document, playlist);
    ASSERT_TRUE(packets);
    EXPECT_EQ(wholeTextOf(playlistOf(*std::move(packets))).toStdString(), changed.toStdString());
    drafts.discard(document);
    EXPECT_FALSE(drafts.of(document));
    EXPECT_FALSE(drafts.packets(document, playlist));
}

TEST_F(SavedLesson, HasNoDraftThatSaysWhatItsDocumentSays)
{
    open(groupFile());
    const Drafts drafts(folder.path());
    editing.setText({1, 2}, u"zwei"_s);
    editing.setText({2, 0}, u"Beta"_s);
    ASSERT_TRUE(drafts.keep(playlist, saving.saved()));
    OpenGroup(playlist, folder.file(u"g.vxg"_s));
    drafts.discardWhatIsSaved(playlist);
    EXPECT_TRUE(drafts.of(playlist.Document)); // the document says something else
    editing.begin();
    editing.replaceAll(EditName::Version, *drafts.packets(playlist.Document, playlist));
    saving.save(playlist.Document);
    OpenGroup(playlist, folder.file(u"g.vxg"_s)); // saved, and ended before the draft went
    drafts.discardWhatIsSaved(playlist);
    EXPECT_FALSE(drafts.of(playlist.Document));
}

TEST_F(SavedLesson, SavesATakenDraftOverItsDocument)
{
    const Drafts drafts(folder.path());
    open(groupFile());
    editing.setText({2, 1}, u"start"_s);
    ASSERT_TRUE(drafts.keep(playlist, saving.saved()));
    open(QString(playlist.Document)); // a copy: opening clears it
    playlist.Playlist = *drafts.packets(playlist.Document, playlist);
    editing.noteDraftTaken();
    EXPECT_TRUE(editing.isChanged());
    saving.save(playlist.Document);
    EXPECT_EQ(value(u"b.vxl"_s, u"brake1"_s, u"text"_s), u"start");
    EXPECT_EQ(value(u"g.vxg"_s, u"file2"_s, u"path"_s), u"b.vxl");
}

TEST_F(SavedLesson, HasADraftWithoutADocument)
{
    const Drafts drafts(folder.path());
    OpenFiles(playlist, {u"/m/1.mp4"_s, u"/m/2.mp4"_s});
    saving.begin();
    editing.setText({1, 2}, u"two"_s);
    ASSERT_TRUE(drafts.keep(playlist, saving.saved()));
    const auto packets = drafts.packets({}, PlaylistState());
    ASSERT_TRUE(packets);
    EXPECT_EQ(textsOf(packets->front()), textsOf(playlist.packet(1)));
}

TEST_F(SavedLesson, PassesASpoiltDraftOver)
{
    const Drafts drafts(folder.path());
    open(packetFile());
    editing.setText({1, 2}, u"zwei"_s);
    ASSERT_TRUE(drafts.keep(playlist, saving.saved()));
    const QString name = QDir(folder.file(u"drafts"_s)).entryList(QDir::Files).value(0);
    const QByteArray whole = folder.bytes(u"drafts/"_s + name);
    for (const QByteArray& spoilt : {QByteArray(), QByteArray(whole).replace("lines=3", "lines=-3"),
                                     QByteArray(whole).replace("packets=1", "packets=many")}) {
        ASSERT_NE(spoilt, whole);
        folder.write(u"drafts/"_s + name, spoilt);
        EXPECT_FALSE(drafts.packets(playlist.Document, playlist));
    }
    folder.write(u"drafts/"_s + name, whole);
    EXPECT_TRUE(drafts.packets(playlist.Document, playlist));
}

} // namespace orvanta::test
