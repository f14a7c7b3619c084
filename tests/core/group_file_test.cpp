#include "core/group_file.h"
#include "core/packet_file.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"

namespace orvanta {

using namespace Qt::StringLiterals;

class GroupFiles : public test::FolderTest
{};

TEST_F(GroupFiles, AreWrittenInTheStatedLayout)
{
    struct Row
    {
        const char* rule;
        QStringList entries;
        QByteArray bytes;
    };
    const Row rows[] = {
        {"members",
         {u"/l/week1.vxl{}week1{}/l/week1.jpg"_s, u"/l/week2.vxl{}Week two{}{No picture}"_s},
         "files=2\r\n[file1]\r\npath=/l/week1.vxl\r\ntext=week1\r\npicture=/l/week1.jpg\r\n"
         "[file2]\r\npath=/l/week2.vxl\r\ntext=Week two\r\npicture={No picture}\r\n"},
        {"entries without a picture carry text and picture over",
         {u"/1.vxl{}one"_s, u"/2.vxl{}two{}/2.jpg"_s, u"/3.vxl{}three"_s, u"none"_s},
         "files=4\r\n[file1]\r\npath=/1.vxl\r\ntext=\r\npicture=\r\n"
         "[file2]\r\npath=/2.vxl\r\ntext=two\r\npicture=/2.jpg\r\n"
         "[file3]\r\npath=/3.vxl\r\ntext=two\r\npicture=/2.jpg\r\n"
         "[file4]\r\npath=/3.vxl\r\ntext=two\r\npicture=/2.jpg\r\n"},
        {"a text with the marker survives only with a picture",
         {u"/1.vxl{}a{}b{}/1.jpg"_s, u"/2.vxl{}c{}d"_s},
         "files=2\r\n[file1]\r\npath=/1.vxl\r\ntext=a{}b\r\npicture=/1.jpg\r\n"
         "[file2]\r\npath=/2.vxl\r\ntext=c\r\npicture=d\r\n"},
        {"an empty group is zero files", {}, "files=0\r\n"},
    };
    for (const Row& row : rows) {
        const QString file = put(u"a.vxg"_s, "[old]\r\nk=1\r\n"); // whose keys do not survive
        writeGroup(file, row.entries);
        EXPECT_EQ(bytesOf(file), "[main]\r\n" + row.bytes) << row.rule;
    }
}

TEST_F(GroupFiles, AGroupSavedAsItWasLoadedShiftsItsTexts)
{
    const QString file = path(u"a.vxg"_s);
    writeGroup(file, {u"/1.vxl{}one{}/1.jpg"_s, u"/2.vxl{}two{}/2.jpg"_s});
    QStringList entries;
    readGroupEntries(file, entries);
    EXPECT_EQ(entries, QStringList({u"/1.vxl{}one"_s, u"/2.vxl{}two"_s}));
    writeGroup(file, entries);
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=2\r\n"
                             "[file1]\r\npath=/1.vxl\r\ntext=\r\npicture=\r\n"
                             "[file2]\r\npath=/2.vxl\r\ntext=\r\npicture=\r\n");
}

TEST_F(GroupFiles, ThePlayerReadsEachMemberWithItsPacket)
{
    const QString first = path(u"first.vxl"_s);
    const QString second = path(u"second.vxl"_s);
    writeBrakePacket(first, u"/m/l.avi"_s, u"/m/l.avi"_s, {u"000000.00{}A"_s, u"000002.00{}B"_s});
    writeClipListPacket(second, {u"/m/x.avi{}X"_s});
    const QString group = path(u"a.vxg"_s);
    writeGroup(group, {first + u"{}First{}/p.jpg"_s, second + u"{}Second{}{No picture}"_s});
    std::vector<PlaylistEntry> packets(1);
    readGroupInto(packets, group);
    ASSERT_EQ(packets.size(), 3U);
    EXPECT_EQ(packets[1].Title, u"First"_s);
    EXPECT_EQ(packets[1].Picture, u"/p.jpg"_s);
    EXPECT_TRUE(packets[1].HasBrakes);
    EXPECT_EQ(packets[1].MediaFile, u"/m/l.avi"_s);
    EXPECT_EQ(packets[1].ClipCount.value(), 2);
    EXPECT_EQ(packets[1].Folder, path(u"."_s).chopped(1));
    EXPECT_FALSE(packets[2].HasBrakes);
    EXPECT_EQ(packets[2].Picture, QStringView(kNoPicture).toString());
    EXPECT_EQ(packets[2].clip(1).Path, u"/m/x.avi"_s);
    EXPECT_EQ(packets[2].clip(1).Text, u"X"_s);
}

TEST_F(GroupFiles, RelativeMembersLieBelowTheGroupsFolder)
{
    ASSERT_TRUE(QDir().mkdir(path(u"week"_s)));
    writeClipListPacket(path(u"week/a.vxl"_s), {u"x.avi{}X"_s});
    const QString group =
        put(u"a.vxg"_s, "[main]\nfiles=1\n[file1]\npath=week\\a.vxl\ntext=Week\n");
    std::vector<PlaylistEntry> packets;
    readGroupInto(packets, group);
    EXPECT_EQ(packets.at(0).Folder, path(u"week/"_s));
    EXPECT_EQ(packets.at(0).clip(1).Text, u"X"_s);
}

TEST_F(GroupFiles, ALetterAndAColonWithoutASlashAreNoDrive)
{
    const QString group = put(u"a.vxg"_s, "[main]\nfiles=1\n[file1]\npath=A: week.vxl\n");
    writeClipListPacket(path(u"A: week.vxl"_s), {u"x.avi{}X"_s});
    std::vector<PlaylistEntry> packets;
    readGroupInto(packets, group);
    EXPECT_EQ(packets.at(0).clip(1).Text, u"X"_s);
}

TEST_F(GroupFiles, AFinderSaysWhereMembersAre)
{
    writeClipListPacket(path(u"moved.vxl"_s), {u"x.avi{}X"_s});
    const QString group = put(u"a.vxg"_s, "[main]\nfiles=2\n[file1]\npath=C:\\a.vxl\n"
                                          "[file2]\npath=C:\\b.vxl\n");
    std::vector<PlaylistEntry> packets;
    readGroupInto(packets, group, [&](const QString& text) {
        return text == u"C:\\a.vxl" ? path(u"moved.vxl"_s) : QString();
    });
    EXPECT_EQ(packets.at(0).clip(1).Text, u"X"_s);
    EXPECT_EQ(packets.at(1).Folder, u"C:\\"_s) << "stale paths stay as they are";
    EXPECT_EQ(packets.at(1).ClipCount.value(), 0);
}

TEST_F(GroupFiles, AMissingGroupHasNoMembers)
{
    std::vector<PlaylistEntry> packets;
    readGroupInto(packets, path(u"missing.vxg"_s));
    EXPECT_TRUE(packets.empty());
}

TEST_F(GroupFiles, WhatWasReadBeforeAFailingMemberStays)
{
    const QString good = path(u"good.vxl"_s);
    writeClipListPacket(good, {u"/m/x.avi{}X"_s});
    const QString bad = put(u"bad.vxl"_s, "[main]\nfiles=abc\n");
    const QString group = path(u"a.vxg"_s);
    writeGroup(group, {good + u"{}Good{}"_s, bad + u"{}Bad{}"_s, good + u"{}Third{}"_s});
    std::vector<PlaylistEntry> packets;
    EXPECT_EQ(errorOf([&] { readGroupInto(packets, group); }), 13);
    ASSERT_EQ(packets.size(), 3U);
    EXPECT_EQ(packets[0].clip(1).Text, u"X"_s);
    EXPECT_EQ(packets[1].Title, u"Bad"_s);
    EXPECT_EQ(packets[2].Title, QString());
}

TEST_F(GroupFiles, CountsAreNumbersOrErrors)
{
    struct Row
    {
        QByteArray files;
        int error;
    };
    for (const Row& row : {Row{"abc", 13}, Row{"-1", 9}, Row{"32768", 6}}) {
        const QString group = put(u"a.vxg"_s, "[main]\nfiles=" + row.files + "\n");
        std::vector<PlaylistEntry> packets;
        QStringList entries = {u"kept"_s};
        EXPECT_EQ(errorOf([&] { readGroupInto(packets, group); }), row.error);
        EXPECT_EQ(errorOf([&] { readGroupEntries(group, entries); }), row.error);
        EXPECT_TRUE(packets.empty());
        EXPECT_EQ(entries, QStringList(u"kept"_s));
    }
}

TEST_F(GroupFiles, AFailingWriteIsAnAccessError)
{
    EXPECT_EQ(errorOf([&] { writeGroup(path(u"no/a.vxg"_s), {}); }), 75);
}

} // namespace orvanta
