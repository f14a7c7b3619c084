#include "core/spoilt_count.h"
#include "platform/process/hand_over_queue.h"
#include "tests/support/error_of.h"
#include "tests/support/plain_user.h"
#include "tests/support/settings_folder.h"

#include <QCoreApplication>
#include <QDir>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct QueueTest : testing::Test
{
    SettingsFolder folder{"[main]\r\nlanguage=1\r\n[ftl]\r\nwr=0\r\nnum=0\r\n[types]\r\nnum=1\r\n"};
    HandOverQueue queue{folder.ini()};

    QStringList drained()
    {
        QStringList taken;
        queue.drain([&](const QStringList& lines) { taken = lines; });
        return taken;
    }

    void set(const QString& key, const QString& value)
    {
        WriteIni(u"ftl"_s, key, value, folder.ini());
    }
};

} // namespace

TEST_F(QueueTest, TheFirstLineHasKeyOne)
{
    queue.append({u"/clips/a.avi"_s});
    EXPECT_EQ(folder.value("ftl", "1"), u"/clips/a.avi");
    EXPECT_EQ(folder.value("ftl", "num"), u"1");
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
}

TEST_F(QueueTest, ALaterLineIsAppended)
{
    queue.append({u"/clips/a.avi"_s});
    queue.append({u"/clips/b.vxl"_s});
    EXPECT_EQ(folder.value("ftl", "1"), u"/clips/a.avi");
    EXPECT_EQ(folder.value("ftl", "2"), u"/clips/b.vxl");
    EXPECT_EQ(folder.value("ftl", "num"), u"2");
}

TEST_F(QueueTest, SeveralLinesOfOneLaunchAreAppendedInOrder)
{
    queue.append({u"/a"_s, u"/b"_s, u"/c"_s});
    EXPECT_EQ(drained(), QStringList({u"/a"_s, u"/b"_s, u"/c"_s}));
}

TEST_F(QueueTest, NoLineWritesNothing)
{
    const QByteArray before = folder.bytes(u"orvanta.ini"_s);
    queue.append({});
    EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), before);
}

TEST_F(QueueTest, SettingsThatCannotBeWrittenTakeNoLineAndKeepNobodyWaiting)
{
    EXPECT_TRUE(test::holdsForPlainUser([] {
        const SettingsFolder theirs("[ftl]\r\nwr=0\r\nnum=0\r\n");
        ASSERT_TRUE(QFile::setPermissions(theirs.ini(), QFile::ReadOwner));
        ASSERT_TRUE(QFile::setPermissions(theirs.path(), QFile::ReadOwner | QFile::ExeOwner));
        EXPECT_FALSE(HandOverQueue(theirs.ini()).append({u"/a"_s}));
        EXPECT_EQ(theirs.value("ftl", "num"), u"0");
        QFile::setPermissions(theirs.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }));
}

TEST_F(QueueTest, AppendingTouchesNothingElse)
{
    queue.append({u"/a"_s});
    EXPECT_EQ(folder.value("main", "language"), u"1");
    EXPECT_EQ(folder.value("types", "num"), u"1");
}

TEST_F(QueueTest, ALineIsQueuedAsTyped)
{
    queue.append({u"\"C:\\My Clips\\A.AVI\""_s});
    EXPECT_TRUE(folder.bytes(u"orvanta.ini"_s).contains("1=\"C:\\My Clips\\A.AVI\""));
}

TEST_F(QueueTest, BlanksAtTheEndsOfALineArriveAtTheOtherSide)
{
    queue.append({u"/auto "_s, u" /a"_s});
    EXPECT_EQ(drained(), QStringList({u"/auto "_s, u" /a"_s}));
}

TEST_F(QueueTest, ACountThatIsNoNumberIsATypeMismatch)
{
    for (const QString& count : {u""_s, u"abc"_s}) {
        set(u"num"_s, count);
        EXPECT_EQ(errorOf([&] { queue.append({u"/a"_s}); }), 13) << count.toStdString();
        EXPECT_EQ(folder.value("ftl", "wr"), u"0");
    }
}

TEST_F(QueueTest, TheErrorOfASpoiltCountSaysWhereItStands)
{
    set(u"num"_s, u"abc"_s);
    try {
        queue.append({u"/a"_s});
        ADD_FAILURE() << "no error";
    } catch (const SpoiltCount& error) {
        EXPECT_EQ(error.place().file, folder.ini());
        EXPECT_EQ(error.place().section + u' ' + error.place().key, u"ftl num");
        EXPECT_EQ(error.value(), u"abc");
    }
}

TEST_F(QueueTest, ACountThatGrowsOutOfRangeIsAnOverflow)
{
    set(u"num"_s, u"32767"_s);
    EXPECT_EQ(errorOf([&] { queue.append({u"/a"_s}); }), 6);
    EXPECT_EQ(folder.value("ftl", "num"), u"32767");
}

TEST_F(QueueTest, HasEntriesWhenTheCountIsNotZero)
{
    EXPECT_FALSE(queue.hasEntries());
    queue.append({u"/a"_s});
    EXPECT_TRUE(queue.hasEntries());
    drained();
    EXPECT_FALSE(queue.hasEntries());
}

TEST(QueueWithoutSettings, HasNoEntries)
{
    const SettingsFolder folder{QByteArray()};
    EXPECT_FALSE(HandOverQueue(folder.file(u"missing.ini"_s)).hasEntries());
}

TEST_F(QueueTest, DrainingHoldsTheFlagAndResetsBothKeys)
{
    queue.append({u"/a"_s});
    QString flag;
    queue.drain([&](const QStringList&) { flag = folder.value("ftl", "wr"); });
    EXPECT_EQ(flag, u"1");
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
}

TEST_F(QueueTest, AQueueLeftByACrashIsDrained)
{
    set(u"1"_s, u"/left.avi"_s);
    set(u"num"_s, u"1"_s);
    set(u"wr"_s, u"1"_s);
    EXPECT_EQ(drained(), QStringList(u"/left.avi"_s));
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
}

TEST_F(QueueTest, AnErrorWhileOpeningStillResetsBothKeys)
{
    queue.append({u"/a"_s});
    EXPECT_EQ(errorOf([&] {
                  queue.drain(
                      [](const QStringList&) { throw RuntimeError(ErrorNumber::TypeMismatch); });
              }),
              13);
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
}

TEST_F(QueueTest, DrainingACountThatIsNoNumberResetsBothKeysAndRaises)
{
    set(u"num"_s, u"abc"_s);
    EXPECT_TRUE(queue.hasEntries());
    EXPECT_EQ(errorOf([&] { drained(); }), 13);
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
}

TEST_F(QueueTest, DrainingANegativeCountResetsBothKeysAndRaises)
{
    set(u"num"_s, u"-1"_s);
    EXPECT_EQ(errorOf([&] { drained(); }), 9);
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
}

TEST_F(QueueTest, KeysWithoutATextHandNothingOver)
{
    set(u"num"_s, u"3"_s);
    set(u"2"_s, u"/b"_s);
    EXPECT_EQ(drained(), QStringList(u"/b"_s));
}

TEST_F(QueueTest, LinesOfAnEarlierTurnAreNotDrainedAgain)
{
    queue.append({u"/a"_s, u"/b"_s});
    drained();
    queue.append({u"/c"_s});
    EXPECT_EQ(drained(), QStringList(u"/c"_s));
}

TEST(FolderSwitch, NamesAnAbsoluteOrExistingFolder)
{
    EXPECT_EQ(folderOfLine(u"/f/no/such/folder"_s), u"/no/such/folder");
    EXPECT_EQ(folderOfLine(u"/F/clips"_s), u"/clips");
    EXPECT_EQ(folderOfLine(u"/fC:\\Clips"_s), u"C:\\Clips");
    const SettingsFolder folder{QByteArray()};
    QDir(folder.path()).mkdir(u"sub"_s);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    EXPECT_EQ(folderOfLine(u"/fsub"_s), u"sub");
    QDir::setCurrent(before);
}

TEST(FolderSwitch, AFolderNeedsNoSwitch)
{
    SettingsFolder folder{QByteArray()};
    EXPECT_EQ(folderOfLine(folder.path()), folder.path());
    EXPECT_EQ(folderOfLine(folder.write(u"a.avi"_s, "x")), std::nullopt);
}

TEST(FolderSwitch, AFolderInQuotationMarksIsMeantWithoutThem)
{
    EXPECT_EQ(folderOfLine(u"/f\"/home/a b\""_s), u"/home/a b"_s);
}

TEST(FolderSwitch, IsNoneInAnythingElse)
{
    for (const QString& line :
         {u""_s, u"/f"_s, u"/films/a.avi"_s, u"/fmissing"_s, u"/g/clips"_s, u"f/clips"_s}) {
        EXPECT_EQ(folderOfLine(line), std::nullopt) << line.toStdString();
    }
}

TEST(FolderSwitch, AnExistingPathIsNeverASwitch)
{
    const QString name = u"orvanta-test-%1"_s.arg(QCoreApplication::applicationPid());
    const QString path = u"/f"_s + name;
    if (!QDir().mkdir(path)) {
        GTEST_SKIP() << "only the administrator can make a folder whose path begins with /f";
    }
    const SettingsFolder folder{QByteArray()};
    QDir(folder.path()).mkdir(name);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    EXPECT_EQ(folderOfLine(path), path);
    QDir().rmdir(path);
    EXPECT_EQ(folderOfLine(path), name);
    QDir::setCurrent(before);
}

} // namespace orvanta
