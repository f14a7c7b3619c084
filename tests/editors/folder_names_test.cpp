#include "editors/folder_names.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class FolderNames : public ::testing::Test
{
protected:
    void put(const QString& name) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
    }
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FolderNames, AreThoseThatMatchThePattern)
{
    struct Row
    {
        const char* rule;
        QString pattern;
        QStringList names;
    };
    for (const QString& name : {u"a10.avi"_s, u"a2.avi"_s, u"A1.avi"_s, u"b.AVI"_s, u"c.Mp3"_s,
                                u"davi"_s, u".h.avi"_s, u"two\nlines.avi"_s, u"lesson1.txt"_s}) {
        put(name);
    }
    QDir(path()).mkdir(u"folder.avi"_s);
    const QStringList films = {u"A1.avi"_s, u"a2.avi"_s, u"a10.avi"_s, u"b.AVI"_s};
    const Row rows[] = {
        {"sorted with numbers by value, without hidden files, folders and names with line breaks",
         u"*.avi"_s, films},
        {"without regard to case", u"*.AVI;*.mp3"_s, films + QStringList(u"c.Mp3"_s)},
        {"wildcards stand anywhere", u"less*n?.txt"_s, {u"lesson1.txt"_s}},
        {"an empty pattern lists nothing", {}, {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(fileNames(path(), row.pattern), row.names) << row.rule;
    }
}

TEST_F(FolderNames, OfAFolderThatIsNotThereAreNone)
{
    EXPECT_EQ(fileNames(path() + u"/gone"_s, u"*.avi"_s), QStringList());
}

TEST_F(FolderNames, OfFoldersIncludeLinksToFolders)
{
    QDir(path()).mkdir(u"b"_s);
    QDir(path()).mkdir(u".hidden"_s);
    put(u"file"_s);
    QFile::link(path() + u"/b"_s, path() + u"/a"_s);
    EXPECT_EQ(folderNames(path()), QStringList({u"a"_s, u"b"_s}));
}

TEST(FolderExists, NeedsAnAbsoluteFolderThatCanBeListed)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(FolderExists(folder.path()));
    EXPECT_TRUE(FolderExists(folder.path() + u'/'));
    EXPECT_FALSE(FolderExists(file.fileName()));
    EXPECT_FALSE(FolderExists(folder.path() + u"/gone"_s));
    EXPECT_FALSE(FolderExists(u"."_s));
    EXPECT_FALSE(FolderExists(u""_s));
    EXPECT_FALSE(FolderExists(u"C:\\Clips"_s));
}

TEST(AddBackslash, AddsTheSeparatorOnce)
{
    EXPECT_EQ(AddBackslash(u"/home/a"_s), u"/home/a/"_s);
    EXPECT_EQ(AddBackslash(u"/"_s), u"/"_s);
    EXPECT_EQ(AddBackslash(u"C:\\Clips"_s), u"C:\\Clips\\"_s);
}

TEST(StartFolder, IsTheUsersOwnWhenTheStoredOneIsGone)
{
    QTemporaryDir folder;
    EXPECT_EQ(startFolder(folder.path()), folder.path());
    EXPECT_EQ(startFolder(folder.path() + u"/gone"_s), QDir::homePath());
    EXPECT_EQ(startFolder(QString()), QDir::homePath());
}

TEST(VolumesOfMountTable, AreThoseInTheUsersPlaces)
{
    const QByteArray table = "/dev/sda1 / ext4 rw 0 0\n"
                             "proc /proc proc rw 0 0\n"
                             "/dev/sdb1 /media/anna/MY\\040STICK vfat rw 0 0\n"
                             "//nas/films /mnt/films cifs rw 0 0\n"
                             "/dev/sdb1 /media/anna/MY\\040STICK vfat rw 0 0\n";
    EXPECT_EQ(volumesOfMountTable(table),
              QStringList({u"/media/anna/MY STICK"_s, u"/mnt/films"_s}));
}

TEST(TypedPath, TakesWhatPeoplePaste)
{
    QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"my clips"_s);
    QDir(folder.path()).mkdir(u"blank at the end "_s);
    const QString clips = folder.filePath(u"my clips"_s);
    struct Row
    {
        QString text;
        QString folder;
        QString name;
    };
    const Row rows[] = {
        {clips, clips, {}},
        {clips + u"/"_s, clips, {}},
        {u"  \""_s + clips + u"\"\n"_s, clips, {}},
        {u"file://"_s + QString(clips).replace(u' ', u"%20"_s), clips, {}},
        {u"my clips"_s, clips, {}},
        {u"my clips/../my clips"_s, clips, {}},
        {clips + u"/new.vxl"_s, clips, u"new.vxl"_s},
        {u"name"_s, folder.path(), u"name"_s},
        {u"blank at the end "_s, folder.filePath(u"blank at the end "_s), {}},
        {u"~"_s, QDir::homePath(), {}},
        {u"/no/such/folder/at all"_s, {}, {}},
        {u"   "_s, {}, {}},
    };
    for (const Row& row : rows) {
        const TypedPath typed = typedPath(row.text, folder.path());
        EXPECT_EQ(typed.folder, row.folder) << qPrintable(row.text);
        EXPECT_EQ(typed.name, row.name) << qPrintable(row.text);
    }
}

} // namespace orvanta::test
