#include "core/ini.h"
#include "core/ini_memory.h"
#include "core/packet_file.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"

namespace orvanta {

using namespace Qt::StringLiterals;
using test::UserLocale;

class PacketFiles : public test::FolderTest
{
protected:
    [[nodiscard]] static PlaylistEntry read(const QString& path)
    {
        PlaylistEntry entry;
        readPacketInto(entry, path);
        return entry;
    }
};

TEST_F(PacketFiles, AClipListHasTheStatedLayout)
{
    const QString file = path(u"a.vxl"_s);
    writeClipListPacket(file,
                        {u"/clips/intro.avi{}Introduction"_s, u"/clips/part2.mpg{}Part two"_s});
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=2\r\n"
                             "[file1]\r\npath=/clips/intro.avi\r\ntext=Introduction\r\n"
                             "[file2]\r\npath=/clips/part2.mpg\r\ntext=Part two\r\n");
}

TEST_F(PacketFiles, TheTextOfALargePacketStaysInItsFileAndIsReadAgainWhenAsked)
{
    const QString small = path(u"small.vxl"_s);
    const QString large = path(u"large.vxl"_s);
    writeClipListPacket(small, QStringList(10, u"a.mp4{}Text"_s));
    writeClipListPacket(large, QStringList(1000, u"a.mp4{}Text"_s));
    EXPECT_EQ(read(small).Clips.size(), 10);
    EXPECT_TRUE(isIniInMemory(small));
    const IniSnapshot before(large);
    EXPECT_EQ(read(large).Clips.size(), 1000);
    EXPECT_FALSE(isIniInMemory(large));
    EXPECT_EQ(before.read(u"file1000"_s, u"text"_s), u"Text");
    WriteIni(u"file1000"_s, u"text"_s, u"Other"_s, large);
    EXPECT_EQ(ReadIni(u"file1000"_s, u"text"_s, large), u"Other");
    EXPECT_EQ(read(large).Clips.back().Text, u"Other");
    forgetIni(path(u"never.vxl"_s));
}

TEST_F(PacketFiles, AnEntryTakesLittleMoreThanItsTexts)
{
    constexpr std::size_t kMost = 300; // bytes, of texts of about thirty characters each
    const QString file = path(u"a.vxl"_s);
    writeClipListPacket(
        file, QStringList(1000, u"clips/clip number 12345.mp4{}A line of the lesson, no. 12345"_s));
    const PlaylistEntry packet = read(file);
    ASSERT_EQ(packet.Clips.size(), 1000);
    std::size_t bytes = packet.Clips.capacity() * sizeof(ClipEntry);
    for (const ClipEntry& clip : packet.Clips) {
        for (const QString& text : {clip.Time, clip.Text, clip.Path}) {
            bytes += static_cast<std::size_t>(text.capacity()) * sizeof(QChar) +
                     (text.capacity() > 0 ? sizeof(QArrayData) + sizeof(QChar) : 0);
        }
    }
    EXPECT_LT(bytes / packet.Clips.size(), kMost);
}

TEST_F(PacketFiles, ABrakePacketHasTheStatedLayout)
{
    const QString file = path(u"a.vxl"_s);
    writeBrakePacket(file, u"/clips/lesson.avi"_s, u"/clips/lesson.avi"_s,
                     {u"000000.00{}Start"_s, u"000075.40{}Second exercise"_s});
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=1\r\nfile=/clips/lesson.avi\r\nbrakes=2\r\n"
                             "[file1]\r\npath=/clips/lesson.avi\r\ntext=/clips/lesson.avi\r\n"
                             "[brake1]\r\ntime=000000.00\r\ntext=Start\r\n"
                             "[brake2]\r\ntime=000075.40\r\ntext=Second exercise\r\n");
}

TEST_F(PacketFiles, AnEmptyClipListIsZeroFiles)
{
    writeClipListPacket(path(u"a.vxl"_s), {});
    EXPECT_EQ(bytesOf(path(u"a.vxl"_s)), "[main]\r\nfiles=0\r\n");
}

TEST_F(PacketFiles, EntriesAreReadBackAsTheFileCanHoldThem)
{
    struct Row
    {
        const char* rule;
        QStringList written;
        std::vector<std::pair<QString, QString>> clips;
    };
    const Row rows[] = {
        {"a text with the marker is written whole",
         {u"/a.avi{}one{}two{}"_s},
         {{u"/a.avi"_s, u"one{}two{}"_s}}},
        {"a path with the marker is cut at its first",
         {u"/a{}b.avi{}text"_s},
         {{u"/a"_s, u"b.avi{}text"_s}}},
        {"an entry without the marker repeats the previous one",
         {u"none"_s, u"/a.avi{}A"_s, u"none"_s},
         {{{}, {}}, {u"/a.avi"_s, u"A"_s}, {u"/a.avi"_s, u"A"_s}}},
        {"texts lose outer blanks and one pair of quotes",
         {u"/a.avi{}  A  "_s, u"/b.avi{}\"B\""_s},
         {{u"/a.avi"_s, u"A"_s}, {u"/b.avi"_s, u"B"_s}}},
        {"a line break in a text becomes a blank",
         {u"/a.avi{}one\r\ntwo"_s},
         {{u"/a.avi"_s, u"one two"_s}}},
    };
    for (const Row& row : rows) {
        writeClipListPacket(path(u"a.vxl"_s), row.written);
        std::vector<std::pair<QString, QString>> clips;
        for (const ClipEntry& clip : read(path(u"a.vxl"_s)).Clips) {
            clips.emplace_back(clip.Path, clip.Text);
        }
        EXPECT_EQ(clips, row.clips) << row.rule;
    }
}

TEST_F(PacketFiles, SavingReplacesAnEarlierFileEntirely)
{
    const QString file = put(u"a.vxl"_s, "[main]\r\nbrakes=7\r\n[old]\r\nk=1\r\n");
    writeClipListPacket(file, {u"/a.avi{}A"_s});
    EXPECT_EQ(bytesOf(file), "[main]\r\nfiles=1\r\n[file1]\r\npath=/a.avi\r\ntext=A\r\n");
}

TEST_F(PacketFiles, BrakesKeepTheOrderOfTheList)
{
    writeBrakePacket(path(u"a.vxl"_s), u"/a.avi"_s, u"/a.avi"_s,
                     {u"000009.00{}Late"_s, u"000001.00{}Early"_s});
    const PlaylistEntry entry = read(path(u"a.vxl"_s));
    EXPECT_EQ(entry.clip(1).Text, u"Late"_s);
    EXPECT_EQ(entry.clip(2).Time, u"000001.00"_s);
}

TEST_F(PacketFiles, ABrakePacketIsReadWithItsMediaFile)
{
    const QString file =
        put(u"a.vxl"_s, "[brake2]\ntext=Two\ntime=000012,50\n\n\n[MAIN]\nbrakes=2\n"
                        "file=/m/lesson.avi\nfiles=1\n[Brake1]\ntime=0\n");
    const PlaylistEntry entry = read(file);
    EXPECT_TRUE(entry.HasBrakes);
    EXPECT_EQ(entry.MediaFile, u"/m/lesson.avi"_s);
    EXPECT_EQ(entry.ClipCount.value(), 2);
    EXPECT_EQ(entry.clip(1).Text, QString());
    EXPECT_EQ(entry.clip(2).Time, u"000012,50"_s);
    EXPECT_EQ(entry.clip(2).Text, u"Two"_s);
    EXPECT_EQ(entry.clip(2).Path, QString());
}

TEST_F(PacketFiles, NoBrakesReadAsAClipListOfOne)
{
    writeBrakePacket(path(u"a.vxl"_s), u"/m/lesson.avi"_s, u"/m/lesson.avi"_s, {});
    const PlaylistEntry entry = read(path(u"a.vxl"_s));
    EXPECT_FALSE(entry.HasBrakes);
    EXPECT_EQ(entry.ClipCount.value(), 1);
    EXPECT_EQ(entry.clip(1).Path, u"/m/lesson.avi"_s);
    EXPECT_EQ(entry.clip(1).Text, u"/m/lesson.avi"_s);
}

TEST_F(PacketFiles, TheFolderIsThePacketsOwn)
{
    writeClipListPacket(path(u"a.vxl"_s), {});
    EXPECT_EQ(read(path(u"a.vxl"_s)).Folder, path(u"."_s).chopped(1));
}

TEST_F(PacketFiles, MissingSectionsAreEmptyAndFurtherOnesIgnored)
{
    const QString file = put(u"a.vxl"_s, "[main]\nfiles=2\n[file1]\npath=/a\n[file3]\npath=/c\n");
    const PlaylistEntry entry = read(file);
    EXPECT_EQ(entry.Clips.size(), 2U);
    EXPECT_EQ(entry.clip(1).Path, u"/a"_s);
    EXPECT_EQ(entry.clip(2).Path, QString());
}

TEST_F(PacketFiles, AMissingPacketHasNoClips)
{
    const PlaylistEntry entry = read(path(u"missing.vxl"_s));
    EXPECT_EQ(entry.ClipCount.value(), 0);
    EXPECT_TRUE(entry.Clips.empty());
}

TEST_F(PacketFiles, CountsAreNumbersOrErrors)
{
    struct Row
    {
        QByteArray main;
        int error;
    };
    for (const Row& row : {Row{"files=abc", 13}, Row{"brakes=abc", 13}, Row{"files=-1", 9},
                           Row{"brakes=-1", 9}, Row{"files=32768", 6}, Row{"brakes=32768", 6}}) {
        const QString file = put(u"a.vxl"_s, "[main]\n" + row.main + "\n");
        EXPECT_EQ(errorOf([&] { (void)read(file); }), row.error) << row.main.toStdString();
    }
}

TEST_F(PacketFiles, CountsAreReadWhateverTheLocale)
{
    const UserLocale german(u"de_DE"_s);
    EXPECT_EQ(read(put(u"a.vxl"_s, "[main]\nfiles=2.5\n")).ClipCount.value(), 2);
    EXPECT_EQ(read(put(u"a.vxl"_s, "[main]\nfiles=1,0\n")).ClipCount.value(), 1);
}

TEST_F(PacketFiles, AFailingWriteIsAnAccessError)
{
    EXPECT_EQ(errorOf([&] { writeClipListPacket(path(u"no/a.vxl"_s), {}); }), 75);
    EXPECT_EQ(errorOf([&] { writeBrakePacket(path(u"no/a.vxl"_s), {}, {}, {}); }), 75);
}

TEST_F(PacketFiles, TheEditorReadsABrakePacketAsItsOneClip)
{
    writeBrakePacket(path(u"a.vxl"_s), u"/m/l.avi"_s, u"/m/l.avi"_s, {u"000001.00{}B"_s});
    QStringList entries;
    readClipListEntries(path(u"a.vxl"_s), entries);
    EXPECT_EQ(entries, QStringList(u"/m/l.avi{}/m/l.avi"_s));
}

TEST_F(PacketFiles, TheEditorsClipListEndsAtTheFirstError)
{
    QStringList entries = {u"kept{}entry"_s};
    const QString file = put(u"a.vxl"_s, "[main]\nfiles=many\n");
    EXPECT_EQ(errorOf([&] { readClipListEntries(file, entries); }), 13);
    EXPECT_EQ(errorOf([&] { readClipListEntries(path(u"missing.vxl"_s), entries); }), 13);
    EXPECT_EQ(entries, QStringList(u"kept{}entry"_s));
}

TEST_F(PacketFiles, TheEditorsBrakesAreReadAsTheyAre)
{
    const QString file =
        put(u"a.vxl"_s, "[main]\nfile=/m/l.avi\nbrakes=2\n[brake1]\ntime=000001,50\ntext=A\n");
    const BrakeDocument document = readBrakeDocument(file);
    EXPECT_EQ(document.mediaFile, u"/m/l.avi"_s);
    EXPECT_EQ(document.entries, QStringList({u"000001,50{}A"_s, u"{}"_s}));
}

TEST_F(PacketFiles, TheEditorsBrakesGoOnWithoutACount)
{
    for (const QByteArray& count : {QByteArray("abc"), QByteArray("-4"), QByteArray("99999")}) {
        const BrakeDocument document =
            readBrakeDocument(put(u"a.vxl"_s, "[main]\nfile=/m/l.avi\nbrakes=" + count + "\n"));
        EXPECT_EQ(document.mediaFile, u"/m/l.avi"_s);
        EXPECT_EQ(document.entries, QStringList());
    }
}

TEST_F(PacketFiles, TheLargestPacketIsWrittenAndReadWhole)
{
    QStringList entries;
    for (int i = 1; i <= 32767; ++i) {
        entries.append(u"/clips/%1.avi{}Clip %1"_s.arg(i));
    }
    writeClipListPacket(path(u"a.vxl"_s), entries);
    const PlaylistEntry entry = read(path(u"a.vxl"_s));
    EXPECT_EQ(entry.ClipCount.value(), 32767);
    EXPECT_EQ(entry.clip(1).Path, u"/clips/1.avi"_s);
    EXPECT_EQ(entry.clip(32767).Text, u"Clip 32767"_s);
    QStringList again;
    readClipListEntries(path(u"a.vxl"_s), again);
    EXPECT_EQ(again, entries);
}

TEST_F(PacketFiles, MoreEntriesThanAReaderTakesAreRefusedAndTheEarlierDocumentStays)
{
    const QString target = path(u"a.vxl"_s);
    writeClipListPacket(target, {u"/clips/kept.avi{}Kept"_s});
    const QStringList many(32768, u"/clips/a.avi{}A"_s);
    EXPECT_EQ(errorOf([&] { writeClipListPacket(target, many); }), 6);
    EXPECT_EQ(errorOf([&] { writeBrakePacket(target, u"/a.avi"_s, u"/a.avi"_s, many); }), 6);
    EXPECT_EQ(read(target).clip(1).Text, u"Kept"_s);
}

} // namespace orvanta
