// Settings that are older than the add-ins that come with the program.
#include "platform/process/application_folder.h"
#include "platform/process/shipped_add_ins.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// As an earlier version has made them, with this section of add-ins.
QByteArray earlierSettings(const QByteArray& addIns)
{
    return "[options]\r\nas=1\r\nnc=0\r\nws=0\r\n[main]\r\nlanguage=2\r\n[types]\r\nnum=1\r\n"
           "file0=avi\r\n[save]\r\nvolume=-300\r\nbalance=50\r\n[add-ins]\r\n" +
           addIns;
}

} // namespace

TEST(ShippedAddIns, ComeIntoSettingsThatHadNone)
{
    const SettingsFolder folder(earlierSettings("num=0\r\n"));
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.value("add-ins", "num"), u"2");
    EXPECT_EQ(folder.value("add-ins", "namee1"), u"&Import...");
    EXPECT_EQ(folder.value("add-ins", "namer2"), u"&Экспорт...");
    EXPECT_EQ(folder.value("add-ins", "path2"), u"orvanta-export");
    EXPECT_EQ(folder.value("save", "volume"), u"-300");
    EXPECT_EQ(folder.value("main", "language"), u"2");
}

TEST(ShippedAddIns, StayAwayOnceTheyHaveBeenRemoved)
{
    const SettingsFolder folder(earlierSettings("num=0\r\n"));
    bringShippedAddIns(folder.ini());
    WriteIni(u"add-ins"_s, u"num"_s, u"0"_s, folder.ini());
    const QByteArray removed = folder.bytes(u"orvanta.ini"_s);
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), removed);
}

TEST(ShippedAddIns, StayAwayFromNewSettingsWithoutThem)
{
    const SettingsFolder folder{QByteArray()};
    QFile::remove(folder.ini());
    installDefaultSettings(folder.path());
    for (const char* key : {"namee1", "namer1", "path1", "namee2", "namer2", "path2"}) {
        WriteIni(u"add-ins"_s, QString::fromUtf8(key), {}, folder.ini());
    }
    WriteIni(u"add-ins"_s, u"num"_s, u"0"_s, folder.ini());
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.value("add-ins", "num"), u"0");
}

TEST(ShippedAddIns, LeaveAListOfTheUsersOwnAsItIs)
{
    const QByteArray own = "num=1\r\nnamee1=Mine\r\npath1=mine\r\n";
    const SettingsFolder folder(earlierSettings(own));
    bringShippedAddIns(folder.ini());
    EXPECT_TRUE(folder.bytes(u"orvanta.ini"_s).startsWith(earlierSettings(own)));
    EXPECT_EQ(folder.value("add-ins", "path2"), QString());
    // Nor do they come when it is emptied later.
    folder.write(u"orvanta.ini"_s, earlierSettings("num=0\r\nshipped=1\r\n"));
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.value("add-ins", "num"), u"0");
}

TEST(ShippedAddIns, LeaveAListThatIsSwitchedOffAsItIs)
{
    const SettingsFolder folder(earlierSettings("num=0\r\nnamee1=Mine\r\npath1=mine\r\n"));
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.value("add-ins", "num"), u"0");
    EXPECT_EQ(folder.value("add-ins", "path1"), u"mine");
}

TEST(ShippedAddIns, LeaveSettingsAloneThatSomebodyElseHasMade)
{
    const QByteArray foreign = "[ftl]\nwr=0\nnum=0\n[types]\nnum=0\n[add-ins]\nnum=0\n";
    const SettingsFolder folder(foreign);
    bringShippedAddIns(folder.ini());
    EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), foreign);
}

TEST(ShippedAddIns, DoNotMakeSettingsThatAreNotThere)
{
    const SettingsFolder folder{QByteArray()};
    QFile::remove(folder.ini());
    bringShippedAddIns(folder.ini());
    EXPECT_FALSE(QFile::exists(folder.ini()));
}

} // namespace orvanta
