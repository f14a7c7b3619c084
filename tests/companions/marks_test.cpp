// Marks in clips as other programs write them.

#include "companions/exchange/clock_text.h"
#include "companions/exchange/import_format.h"
#include "companions/exchange/labels.h"
#include "companions/exchange/time_list.h"
#include "companions/exchange/webvtt.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

using Marks = std::vector<LessonMark>;

Marks marksOf(const ReadLesson& read)
{
    return read.lesson.packets.empty() ? Marks() : read.lesson.packets[0].marks;
}

bool hasEnd(const ReadLesson& read)
{
    return !read.lesson.packets.empty() && read.lesson.packets[0].hasEnd;
}

} // namespace

TEST(Clock, ReadsWhatPeopleAndProgramsWrite)
{
    EXPECT_EQ(clockSeconds(u"1:02:03.45"), 3723.45);
    EXPECT_EQ(clockSeconds(u" 02:03,450 "), 123.45);
    EXPECT_EQ(clockSeconds(u"63.25"), 63.25);
    EXPECT_EQ(clockSeconds(u"100:00"), 6000);
    for (const QStringView text : {u"", u":", u"1:", u":1", u"1:60", u"1:60:00", u"-1", u"1:2:3:4",
                                   u"1.", u".5", u"1e3", u"nan", u"0x10", u"99999999", u"1:-2"}) {
        EXPECT_FALSE(clockSeconds(text)) << text.toUtf8().constData();
    }
}

TEST(Clock, WritesThousandths)
{
    EXPECT_EQ(clockWithMilliseconds(0), u"00:00:00.000");
    EXPECT_EQ(clockWithMilliseconds(3723.4567), u"01:02:03.457");
    EXPECT_EQ(clockWithMilliseconds(999999), u"277:46:39.000");
    EXPECT_EQ(clockWithMilliseconds(-1), u"00:00:00.000");
}

// The examples of Audacity's own manual: point, regions, and what spectral labels add.
TEST(AudacityLabels, ArePointsAndRegions)
{
    const ReadLesson read = readLabels(u"1.500000\t1.500000\tpoint\n"
                                       u"2.000000\t3.250000\tregion with\ttab\n"
                                       u"\\\t100.000000\t2000.000000\n"
                                       u"4,000000\t5,500000\tcomma\n"
                                       u"6.0\t6.5\t\n");
    EXPECT_EQ(marksOf(read), (Marks{{1.5, u"point"_s},
                                    {2, u"region with\ttab"_s},
                                    {4, u"comma"_s},
                                    {6, QString()},
                                    {6.5, QString()}}));
    EXPECT_TRUE(hasEnd(read));
    EXPECT_TRUE(read.leftOut.empty());
}

TEST(AudacityLabels, OfPointsAloneEndWithTheClip)
{
    const ReadLesson read = readLabels(u"2.0\t2.0\tB\r\n1.0\t1.0\tA\r\n-0.5\t0.2\tearly\r\n");
    EXPECT_EQ(marksOf(read), (Marks{{0, u"early"_s}, {1, u"A"_s}, {2, u"B"_s}}));
    EXPECT_FALSE(hasEnd(read));
}

TEST(AudacityLabels, NameTheLineThatIsNone)
{
    const ReadLesson read = readLabels(u"1.0\t2.0\tok\nhello\n1.0\n\tx\ty\n");
    ASSERT_EQ(read.leftOut.size(), 3U);
    EXPECT_EQ(read.leftOut[0].line, 2);
    EXPECT_EQ(read.leftOut[2].line, 4);
    EXPECT_EQ(readLabels(u"\nhello\n").failure->line, 2);
    EXPECT_TRUE(readLabels(u"").failure);
}

TEST(TimeList, ReadsTheFormsThatPeopleUse)
{
    struct Row
    {
        QStringView line;
        double seconds;
        QStringView text;
    };
    constexpr Row kRows[] = {
        {u"0:00 Intro", 0, u"Intro"},
        {u"00:00 - Intro", 0, u"Intro"},
        {u"1:02:03 Далеко 🙂", 3723, u"Далеко 🙂"},
        {u"12:34.56 — Hundredths", 754.56, u"Hundredths"},
        {u"[01:05] In brackets", 65, u"In brackets"},
        {u"(1:05) In round ones", 65, u"In round ones"},
        {u"3. 2:00 Numbered", 120, u"Numbered"},
        {u"3) 2:00 – Numbered, too", 120, u"Numbered, too"},
        {u"- 2:00 With a dash", 120, u"With a dash"},
        {u"• 2:00 | With a bullet", 120, u"With a bullet"},
        {u"  2:00\tBehind blanks", 120, u"Behind blanks"},
        {u"2:00: colon", 120, u"colon"},
        {u"[00:12.50]Lyrics", 12.5, u"Lyrics"},
        {u"At the end 2:00", 120, u"At the end"},
        {u"At the end - (2:00)", 120, u"At the end"},
        {u"2:00", 120, u""},
        {u"2:00 5 of 10: a - b", 120, u"5 of 10: a - b"},
    };
    for (const Row& row : kRows) {
        const Marks marks = marksOf(readTimeList(row.line));
        ASSERT_EQ(marks.size(), 1U) << row.line.toUtf8().constData();
        EXPECT_DOUBLE_EQ(marks[0].seconds, row.seconds) << row.line.toUtf8().constData();
        EXPECT_EQ(marks[0].text, row.text) << row.line.toUtf8().constData();
    }
}

TEST(TimeList, KnowsWhereARangeEnds)
{
    const ReadLesson read = readTimeList(u"0:00 - 0:30 One\n0:30–1:00 Two\n");
    EXPECT_EQ(marksOf(read), (Marks{{0, u"One"_s}, {30, u"Two"_s}, {60, QString()}}));
    EXPECT_TRUE(hasEnd(read));
}

TEST(TimeList, LeavesOutLinesWithoutATime)
{
    const ReadLesson read = readTimeList(u"My video\n\n0:00 A\nsee 12 of 13\n1:75 none\n0:30 B\n");
    EXPECT_EQ(marksOf(read).size(), 2U);
    ASSERT_EQ(read.leftOut.size(), 3U);
    EXPECT_EQ(read.leftOut[1].line, 4);
    EXPECT_TRUE(readTimeList(u"no times at all").failure);
}

TEST(WebVtt, HasCuesAndPassesOverAllElse)
{
    const ReadLesson read = readWebVtt(
        u"\uFEFFWEBVTT - a title\nKind: chapters\n\nSTYLE\n::cue { color: red }\n\n"
        u"NOTE a note\nof two lines\n\nfirst\n00:01.000 --> 00:02.500 align:start line:0%\n"
        u"<v Anna>Hello &amp; <i>good</i> day &#8211; &unknown;\n second\n\n"
        u"01:00:00.000 --> 01:00:01.000\n{not} a \\ tag\n");
    EXPECT_EQ(marksOf(read), (Marks{{1, u"Hello & good day – &unknown;\n second"_s},
                                    {3600, u"{not} a \\ tag"_s},
                                    {3601, QString()}}));
    EXPECT_TRUE(read.leftOut.empty());
}

TEST(WebVtt, NamesTheLineThatIsBroken)
{
    const ReadLesson read =
        readWebVtt(u"WEBVTT\n\n00:05.000 --> 00:01.000\nbackwards\n\n"
                   u"stray\n\n00:06.000 --> \nempty\n\n00:07.000 --> 00:08.000\nok");
    EXPECT_EQ(marksOf(read).size(), 2U);
    ASSERT_EQ(read.leftOut.size(), 3U);
    EXPECT_EQ(read.leftOut[0].line, 3);
    EXPECT_EQ(read.leftOut[1].line, 6);
    EXPECT_EQ(read.leftOut[2].line, 8);
    EXPECT_EQ(readWebVtt(u"00:00.000 --> 00:01.000\nx").failure->line, 1);
    EXPECT_TRUE(readWebVtt(u"WEBVTT").failure);
    EXPECT_TRUE(readWebVtt(u"").failure);
}

TEST(KindsOfFiles, AreKnownByTheirContentBeforeTheirName)
{
    const auto kind = [](const char* name, const QByteArray& bytes) {
        return importFormatOf(QString::fromUtf8(name), bytes);
    };
    EXPECT_EQ(kind("a.txt", "\xef\xbb\xbfWEBVTT\n"), ImportFormat::WebVtt);
    EXPECT_EQ(kind("a.txt", "#EXTM3U\n"), ImportFormat::M3u);
    EXPECT_EQ(kind("a.m3u", "music/a.mp3\n"), ImportFormat::M3u);
    EXPECT_EQ(kind("a.xml", "<?xml version=\"1.0\"?>\n<Chapters/>"),
              ImportFormat::MatroskaChapters);
    EXPECT_EQ(kind("a", "<?xml version=\"1.0\"?>\n<playlist/>"), ImportFormat::Xspf);
    EXPECT_EQ(kind("a.txt", ";FFMETADATA1\n"), ImportFormat::FfMetadata);
    EXPECT_EQ(kind("a", "[playlist]\n"), ImportFormat::Pls);
    EXPECT_EQ(kind("a.cue", "FILE \"a\" WAVE\n"), ImportFormat::Cue);
    EXPECT_EQ(kind("a", "1\n00:00:01,000 --> 00:00:02,000\nx\n"), ImportFormat::Subtitles);
    EXPECT_EQ(kind("a", "[Script Info]\n"), ImportFormat::Subtitles);
    EXPECT_EQ(kind("labels.txt", "1.0\t2.0\tx\n"), ImportFormat::Labels);
    EXPECT_EQ(kind("times.txt", "0:00 x\n"), ImportFormat::TimeList);
    EXPECT_EQ(kind("a.mp4", QByteArray("\0\0\0\x20"
                                       "ftypisom",
                                       12)),
              ImportFormat::Media);
}

} // namespace orvanta::test
