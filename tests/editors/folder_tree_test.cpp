#include "editors/folder_tree.h"
#include "editors/folder_tree_model.h"
#include "tests/editors/editor_room.h"

#include <QSignalSpy>

namespace orvanta::test {

namespace {

class FolderTreeRoom : public EditorRoom
{
protected:
    FolderTree tree{TextLanguage::English};
};

} // namespace

TEST_F(FolderTreeRoom, ShowsTheFolderWithItsWayDownOpened)
{
    QDir(room()).mkpath(u"a/b"_s);
    EXPECT_TRUE(tree.setFolder(room(u"a/b"_s)));
    EXPECT_EQ(tree.folder(), room(u"a/b"_s));
    EXPECT_TRUE(tree.isExpanded(tree.currentIndex().parent()));
}

TEST_F(FolderTreeRoom, AFolderThatIsNotThereChangesNothing)
{
    ASSERT_TRUE(tree.setFolder(room()));
    EXPECT_FALSE(tree.setFolder(room(u"gone"_s)));
    EXPECT_EQ(tree.folder(), room());
}

TEST_F(FolderTreeRoom, ShowsAHiddenFolderOnlyWhenItIsTheOneThatIsWanted)
{
    QDir(room()).mkpath(u".hidden/in"_s);
    QDir(room()).mkpath(u"seen"_s);
    ASSERT_TRUE(tree.setFolder(room(u"seen"_s)));
    EXPECT_EQ(tree.model()->rowCount(tree.currentIndex().parent()), 1);
    ASSERT_TRUE(tree.setFolder(room(u".hidden/in"_s)));
    EXPECT_EQ(tree.folder(), room(u".hidden/in"_s));
}

TEST_F(FolderTreeRoom, FollowsLinksWithoutLooping)
{
    QDir(room()).mkpath(u"a"_s);
    ASSERT_TRUE(QFile::link(room(), room(u"a/up"_s)));
    ASSERT_TRUE(tree.setFolder(room(u"a"_s)));
    const QModelIndex a = tree.currentIndex();
    tree.model()->fetchMore(a);
    ASSERT_EQ(tree.model()->rowCount(a), 1);
    const QModelIndex up = tree.model()->index(0, 0, a);
    tree.model()->fetchMore(up);
    EXPECT_FALSE(tree.model()->hasChildren(up));
}

TEST_F(FolderTreeRoom, ReportsTheFolderThatTheUserChooses)
{
    QDir(room()).mkpath(u"a"_s);
    QDir(room()).mkpath(u"b"_s);
    tree.resize(300, 400);
    tree.show();
    ASSERT_TRUE(tree.setFolder(room(u"a"_s)));
    QSignalSpy chosen(&tree, &FolderTree::folderChosen);
    QTest::keyClick(&tree, Qt::Key_Down);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.at(0).at(0).toString(), room(u"b"_s));
}

TEST_F(FolderTreeRoom, F5ShowsWhatHasComeSince)
{
    QDir(room()).mkpath(u"a"_s);
    ASSERT_TRUE(tree.setFolder(room()));
    tree.expand(tree.currentIndex());
    ASSERT_EQ(tree.model()->rowCount(tree.currentIndex()), 1);
    QDir(room()).mkpath(u"b"_s);
    tree.show();
    QTest::keyClick(&tree, Qt::Key_F5);
    EXPECT_EQ(tree.model()->rowCount(tree.currentIndex()), 2);
}

TEST_F(FolderTreeRoom, FollowsFoldersThatComeAndGoAndWaysThroughALinkThatLeadsBackUp)
{
    QDir(room()).mkpath(u"a/b/.c"_s);
    ASSERT_TRUE(QFile::link(room(), room(u"a/up"_s)));
    ASSERT_TRUE(tree.setFolder(room(u"a/b/.c"_s)));
    QDir(room()).rmdir(u"a/b/.c"_s);
    QDir(room()).mkpath(u"a/b/d"_s);
    ASSERT_TRUE(tree.setFolder(room(u"a/b"_s)));
    QTest::keyClick(&tree, Qt::Key_F5);
    EXPECT_EQ(tree.model()->rowCount(tree.currentIndex()), 1);
    ASSERT_TRUE(tree.setFolder(room(u"a/up/a/b/d"_s)));
    EXPECT_EQ(tree.folder(), room(u"a/up/a/b/d"_s));
    QDir(room(u"a"_s)).removeRecursively();
    ASSERT_TRUE(tree.setFolder(room()));
    QTest::keyClick(&tree, Qt::Key_F5);
    EXPECT_FALSE(tree.model()->hasChildren(tree.currentIndex()));
}

} // namespace orvanta::test
