// Lists of clips as other programs write them.

#include "companions/exchange/cue.h"
#include "companions/exchange/list_entry.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/pls.h"
#include "companions/exchange/xspf.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

std::vector<LessonClip> clipsOf(const ReadLesson& read)
{
    return read.lesson.packets.empty() ? std::vector<LessonClip>() : read.lesson.packets[0].clips;
}

std::vector<int> linesLeftOut(const ReadLesson& read)
{
    std::vector<int> lines;
    for (const Remark& remark : read.leftOut) {
        lines.push_back(remark.line);
    }
    return lines;
}

using Clips = std::vector<LessonClip>;
using Marks = std::vector<LessonMark>;

} // namespace

TEST(M3uList, HasItsTitlesAndPaths)
{
    const ReadLesson read = readM3u(u"#EXTM3U\r\n#EXTINF:123,Band - Song, the first\r\n"
                                    u"music/a.mp3\r\n\r\n# a remark\r\n/whole/b.ogg\r\n"
                                    u"C:\\Music\\c.wma");
    EXPECT_EQ(clipsOf(read), (Clips{{u"music/a.mp3"_s, u"Band - Song, the first"_s},
                                    {u"/whole/b.ogg"_s, u"b"_s},
                                    {u"C:\\Music\\c.wma"_s, u"c"_s}}));
    EXPECT_FALSE(read.failure);
}

TEST(M3uList, ReadsATitleBehindAttributesWithCommas)
{
    const ReadLesson read =
        readM3u(u"#EXTM3U\n#EXTINF:-1 a=\"1, 2\" b=\"3\",Title \"x\", y\na.mp3");
    EXPECT_EQ(clipsOf(read), (Clips{{u"a.mp3"_s, u"Title \"x\", y"_s}}));
}

TEST(M3uList, LeavesOutAddressesAndSaysWhere)
{
    const ReadLesson read =
        readM3u(u"a.mp3\nhttp://host/b.mp3\nrtsp://host/c\nfile:///d/e%20f.mp3");
    EXPECT_EQ(clipsOf(read), (Clips{{u"a.mp3"_s, u"a"_s}, {u"/d/e f.mp3"_s, u"e f"_s}}));
    EXPECT_EQ(linesLeftOut(read), (std::vector{2, 3}));
}

TEST(M3uList, MakesAPacketOfEachGroup)
{
    const ReadLesson read =
        readM3u(u"#PLAYLIST:All\n#EXTGRP:One\na.mp3\nb.mp3\n#EXTGRP:Two\nc.mp3");
    ASSERT_EQ(read.lesson.packets.size(), 2U);
    EXPECT_EQ(read.lesson.title, u"All");
    EXPECT_EQ(read.lesson.packets[0].title, u"One");
    EXPECT_EQ(read.lesson.packets[0].clips.size(), 2U);
    EXPECT_EQ(read.lesson.packets[1].title, u"Two");
}

TEST(M3uList, TakesStartsWithinAClipAsMarks)
{
    const ReadLesson read = readM3u(u"#EXTINF:5,One\n#EXTVLCOPT:start-time=0\n"
                                    u"#EXTVLCOPT:stop-time=5\na.mp4\n"
                                    u"#EXTINF:5,Two\n#EXTVLCOPT:start-time=5\n"
                                    u"#EXTVLCOPT:stop-time=9.5\na.mp4\n");
    ASSERT_EQ(read.lesson.packets.size(), 1U);
    EXPECT_EQ(read.lesson.packets[0].markedClip, u"a.mp4");
    EXPECT_EQ(read.lesson.packets[0].marks,
              (Marks{{0, u"One"_s}, {5, u"Two"_s}, {9.5, QString()}}));
    EXPECT_TRUE(read.lesson.packets[0].hasEnd);
}

TEST(M3uList, BeginsAnotherPacketWhereAPartLiesBeforeTheLastOne)
{
    const ReadLesson read = readM3u(u"#EXTVLCOPT:start-time=5\n#EXTVLCOPT:stop-time=6\na.mp4\n"
                                    u"#EXTVLCOPT:start-time=1\n#EXTVLCOPT:stop-time=2\na.mp4\n");
    ASSERT_EQ(read.lesson.packets.size(), 2U);
    EXPECT_EQ(read.lesson.packets[0].marks, (Marks{{5, u"a"_s}, {6, QString()}}));
    EXPECT_EQ(read.lesson.packets[1].marks, (Marks{{1, u"a"_s}, {2, QString()}}));
}

TEST(M3uList, WithoutClipsIsNone)
{
    for (const QStringView text : {u"", u"#EXTM3U\n", u"\n\n#\n", u"http://a/b\n"}) {
        EXPECT_TRUE(readM3u(text).failure) << text.toUtf8().constData();
    }
}

TEST(PlsList, GoesByItsNumbers)
{
    const ReadLesson read = readPls(u"[playlist]\nFile2=b.mp3\nTitle2=Second\nfile1 = a.mp3\n"
                                    u"File3=http://host/c\nLength1=-1\nNumberOfEntries=3\n"
                                    u"Version=2\nFileX=d\n=\nTitle9=nothing\n");
    EXPECT_EQ(clipsOf(read), (Clips{{u"a.mp3"_s, u"a"_s}, {u"b.mp3"_s, u"Second"_s}}));
    EXPECT_EQ(linesLeftOut(read), (std::vector{5}));
    EXPECT_TRUE(readPls(u"[playlist]\nNumberOfEntries=0\n").failure);
}

TEST(XspfList, HasTitlesCreatorsAndPlaces)
{
    const ReadLesson read = readXspf(R"(<?xml version="1.0" encoding="UTF-8"?>
<playlist version="1" xmlns="http://xspf.org/ns/0/"><title>All &amp; more</title>
 <trackList>
  <track><location>file:///music/a%20%23b.mp3</location><title>Song &lt;1&gt;</title>
   <creator>Band</creator><duration>1000</duration></track>
  <track><location>http://host/c.mp3</location><location>sub/d%2Be.ogg</location></track>
  <track><location>https://host/c.mp3</location><title>Far</title></track>
  <track><location>file:///C:/Music/f.mp3</location></track>
 </trackList></playlist>)");
    EXPECT_FALSE(read.failure);
    EXPECT_EQ(read.lesson.title, u"All & more");
    EXPECT_EQ(clipsOf(read), (Clips{{u"/music/a #b.mp3"_s, u"Band – Song <1>"_s},
                                    {u"sub/d+e.ogg"_s, u"d+e"_s},
                                    {u"C:\\Music\\f.mp3"_s, u"f"_s}}));
    EXPECT_EQ(linesLeftOut(read), (std::vector{7}));
}

TEST(XspfList, SaysTheLineAtWhichItIsBroken)
{
    const ReadLesson read = readXspf("<playlist>\n<trackList>\n<track><location>a</track>");
    ASSERT_TRUE(read.failure);
    EXPECT_EQ(read.failure->line, 3);
}

TEST(XspfList, RefusesEntitiesOfItsOwn)
{
    for (const char* entity :
         {"<!ENTITY a \"aaaa\">", "<!ENTITY a SYSTEM \"file:///etc/passwd\">"}) {
        const ReadLesson read = readXspf(QByteArray("<!DOCTYPE playlist [") + entity +
                                         "]>\n<playlist><trackList><track><location>b</location>"
                                         "<title>&a;</title></track></trackList></playlist>");
        EXPECT_TRUE(read.failure) << entity;
    }
    EXPECT_TRUE(readXspf("<other/>").failure);
    EXPECT_TRUE(readXspf("").failure);
}

TEST(CueSheet, OfOneFileIsAPacketOfMarks)
{
    const ReadLesson read = readCue(u"REM GENRE Talk\nPERFORMER \"Anna\"\nTITLE \"A day\"\n"
                                    u"FILE \"day \u00e9.flac\" WAVE\n"
                                    u"  TRACK 01 AUDIO\n    TITLE \"Morning\"\n"
                                    u"    PERFORMER \"Anna\"\n    INDEX 01 00:00:00\n"
                                    u"  TRACK 02 AUDIO\n    TITLE \"Noon\"\n    PERFORMER Boris\n"
                                    u"    INDEX 00 01:58:00\n    INDEX 01 02:00:15\n"
                                    u"  TRACK 03 AUDIO\n    INDEX 01 75:00:74\n");
    ASSERT_EQ(read.lesson.packets.size(), 1U);
    const LessonPacket& packet = read.lesson.packets[0];
    EXPECT_EQ(packet.title, u"A day");
    EXPECT_EQ(packet.markedClip, u"day \u00e9.flac");
    EXPECT_FALSE(packet.hasEnd);
    ASSERT_EQ(packet.marks.size(), 3U);
    EXPECT_EQ(packet.marks[0], (LessonMark{0, u"Morning"_s}));
    EXPECT_EQ(packet.marks[1], (LessonMark{120.2, u"Boris – Noon"_s}));
    EXPECT_NEAR(packet.marks[2].seconds, 4500 + 74.0 / 75, 1e-9);
    EXPECT_EQ(packet.marks[2].text, u"03");
}

TEST(CueSheet, OfFilesWithOneTrackEachIsAPacketOfClips)
{
    const ReadLesson read = readCue(u"TITLE Album\nFILE 1.wav WAVE\nTRACK 01 AUDIO\nTITLE One\n"
                                    u"INDEX 01 00:00:00\nTRACK 02 AUDIO\nTITLE Two\n"
                                    u"INDEX 00 03:00:00\nFILE 2.wav WAVE\nINDEX 01 00:00:00\n");
    EXPECT_EQ(clipsOf(read), (Clips{{u"1.wav"_s, u"One"_s}, {u"2.wav"_s, u"Two"_s}}));
}

TEST(CueSheet, SaysWhatItCannotUse)
{
    const ReadLesson read = readCue(u"FILE a.wav WAVE\nTRACK 01 AUDIO\nINDEX 01 0:61:00\n"
                                    u"TRACK 02 AUDIO\nINDEX 01 00:01:00\nTRACK 03 AUDIO\n");
    EXPECT_EQ(linesLeftOut(read), (std::vector{3, 2, 6}));
    EXPECT_EQ(clipsOf(read).size(), 1U);
    EXPECT_TRUE(readCue(u"INDEX 01 00:00:00\n").failure);
    EXPECT_TRUE(readCue(u"FILE\nTRACK\nINDEX 01\n\"\n").failure);
}

TEST(PathsOfLists, AreAddressesOnlyWithASchemeOfTheirOwn)
{
    for (const QString& text : {u"http://h/a"_s, u"HTTPS://h/a"_s, u"rtmp://h"_s, u"mms://h/a"_s,
                                u"smb://h/a"_s, u"data:audio/x"_s}) {
        EXPECT_TRUE(isAddressElsewhere(text)) << qPrintable(text);
    }
    for (const QString& text :
         {u"file:///a"_s, u"C:\\a"_s, u"C:/a"_s, u"a: b.mp3"_s, u"/a://b"_s, u"Part 1: a.mp3"_s}) {
        EXPECT_FALSE(isAddressElsewhere(text)) << qPrintable(text);
    }
    EXPECT_EQ(pathOfList(u"file://server/share/a.mp3"_s), u"\\\\server\\share\\a.mp3");
}

} // namespace orvanta::test
