// Chapters in FFmpeg's text of metadata and in Matroska's XML.

#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/matroska_chapters.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

using Marks = std::vector<LessonMark>;

TEST(FfMetadata, IsReadAsFfmpegReadsIt)
{
    const ReadLesson read = readFfMetadata(
        u";FFMETADATA1\r\ntitle=A\\=B\r\n# "
        u"remark\r\n[CHAPTER]\r\nTIMEBASE=1/10\r\nSTART=5\r\nEND=20\r\n"
        u"title=one \\; two \\\\ \\#\\\nsecond line\r\n[STREAM]\r\ntitle=no\r\n[chapter]\r\n"
        u"START=2000000000\r\nEND=3000000000\r\nother=x\r\n");
    ASSERT_FALSE(read.failure);
    EXPECT_EQ(read.lesson.title, u"A=B");
    EXPECT_EQ(read.lesson.packets[0].marks,
              (Marks{{0.5, u"one ; two \\ #\nsecond line"_s}, {2, QString()}, {3, QString()}}));
}

TEST(FfMetadata, NamesTheChapterWithoutATime)
{
    const ReadLesson read = readFfMetadata(u";FFMETADATA1\n[CHAPTER]\nSTART=x\ntitle=bad\n"
                                           u"[CHAPTER]\nTIMEBASE=1/1000\nSTART=1000\nEND=2000\n");
    ASSERT_EQ(read.leftOut.size(), 1U);
    EXPECT_EQ(read.leftOut[0].line, 2);
    EXPECT_EQ(readFfMetadata(u"title=x").failure->line, 1);
    EXPECT_TRUE(readFfMetadata(u";FFMETADATA1\n").failure);
    EXPECT_TRUE(readFfMetadata(u";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/0\nSTART=1e300\\").failure);
}

TEST(MatroskaXml, HasNestedChaptersButNoHiddenOnes)
{
    const ReadLesson read = readMatroskaChapters(R"(<?xml version="1.0"?>
<!-- <!DOCTYPE Chapters SYSTEM "matroskachapters.dtd"> -->
<!DOCTYPE Chapters SYSTEM "matroskachapters.dtd">
<Chapters><EditionEntry><EditionUID>1</EditionUID>
<ChapterAtom><ChapterUID>2</ChapterUID><ChapterTimeStart>00:00:01.500000000</ChapterTimeStart>
 <ChapterDisplay><ChapterString> A &amp; B
second</ChapterString><ChapterLanguage>eng</ChapterLanguage></ChapterDisplay>
 <ChapterDisplay><ChapterString>other language</ChapterString></ChapterDisplay>
 <ChapterAtom><ChapterTimeStart>00:00:02.250</ChapterTimeStart></ChapterAtom></ChapterAtom>
<ChapterAtom><ChapterFlagHidden>1</ChapterFlagHidden><ChapterTimeStart>00:00:03</ChapterTimeStart>
</ChapterAtom></EditionEntry><EditionEntry><ChapterAtom><ChapterTimeStart>00:00:09</ChapterTimeStart>
</ChapterAtom></EditionEntry></Chapters>)");
    ASSERT_FALSE(read.failure);
    EXPECT_EQ(read.lesson.packets[0].marks, (Marks{{1.5, u" A & B\nsecond"_s}, {2.25, QString()}}));
    EXPECT_FALSE(read.lesson.packets[0].hasEnd);
}

TEST(MatroskaXml, SaysTheLineAtWhichItIsBroken)
{
    const ReadLesson broken =
        readMatroskaChapters("<Chapters>\n<EditionEntry>\n<ChapterAtom></EditionEntry>");
    ASSERT_TRUE(broken.failure);
    EXPECT_EQ(broken.failure->line, 3);
    const ReadLesson timeless = readMatroskaChapters(
        "<Chapters><EditionEntry>\n<ChapterAtom><ChapterTimeStart>x</ChapterTimeStart>"
        "</ChapterAtom></EditionEntry></Chapters>");
    ASSERT_TRUE(timeless.failure);
    EXPECT_EQ(timeless.leftOut.at(0).line, 2);
    EXPECT_TRUE(readMatroskaChapters("<!DOCTYPE Chapters [<!ENTITY x \"y\">]><Chapters/>").failure);
    EXPECT_TRUE(readMatroskaChapters("<playlist/>").failure);
}

TEST(MatroskaXml, EndsInAnyDepth)
{
    const QByteArray deep =
        QByteArray("<Chapters><EditionEntry>") + QByteArray("<ChapterAtom>").repeated(100000);
    EXPECT_TRUE(readMatroskaChapters(deep).failure);
}

} // namespace orvanta::test
