// What is exported is imported as it was: hundreds of lessons for each format.

#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/matroska_chapters.h"
#include "companions/exchange/webvtt.h"
#include "companions/exchange/xspf.h"
#include "tests/companions/hostile_lessons.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimes = 500;

/// What the formats of marks alone do not hold.
LessonPacket marksAlone(LessonPacket packet)
{
    packet.markedClip.clear();
    packet.title.clear();
    return packet;
}

template <typename ThereAndBack> void expectSameMarks(const ThereAndBack& thereAndBack)
{
    for (int seed = 0; seed < kTimes; ++seed) {
        session::Dice dice(static_cast<std::uint32_t>(seed));
        const LessonPacket packet = hostileMarks(dice);
        const ReadLesson read = thereAndBack(packet);
        ASSERT_FALSE(read.failure) << "seed " << seed;
        ASSERT_TRUE(read.leftOut.empty()) << "seed " << seed;
        ASSERT_EQ(read.lesson.packets.size(), 1U) << "seed " << seed;
        ASSERT_TRUE(isSamePacket(marksAlone(read.lesson.packets[0]), marksAlone(packet)))
            << "seed " << seed;
    }
}

template <typename ThereAndBack> void expectSameLessons(const ThereAndBack& thereAndBack)
{
    for (int seed = 0; seed < kTimes; ++seed) {
        session::Dice dice(static_cast<std::uint32_t>(seed));
        const Lesson lesson = hostileLesson(dice);
        const ReadLesson read = thereAndBack(lesson);
        ASSERT_FALSE(read.failure) << "seed " << seed;
        ASSERT_TRUE(read.leftOut.empty()) << "seed " << seed;
        EXPECT_EQ(read.lesson.title, lesson.title) << "seed " << seed;
        ASSERT_EQ(read.lesson.packets.size(), lesson.packets.size()) << "seed " << seed;
        for (std::size_t i = 0; i < lesson.packets.size(); ++i) {
            ASSERT_TRUE(isSamePacket(read.lesson.packets[i], lesson.packets[i]))
                << "seed " << seed << " packet " << i;
        }
    }
}

} // namespace

TEST(RoundTrip, WebVtt)
{
    expectSameMarks([](const LessonPacket& packet) { return readWebVtt(webVttText(packet)); });
}

TEST(RoundTrip, FfMetadata)
{
    expectSameMarks(
        [](const LessonPacket& packet) { return readFfMetadata(ffMetadataText(packet)); });
}

TEST(RoundTrip, MatroskaChapters)
{
    expectSameMarks([](const LessonPacket& packet) {
        return readMatroskaChapters(matroskaChaptersText(packet));
    });
}

TEST(RoundTrip, Xspf)
{
    expectSameLessons([](const Lesson& lesson) { return readXspf(xspfText(lesson)); });
}

TEST(RoundTrip, M3u8)
{
    expectSameLessons([](const Lesson& lesson) { return readM3u(m3uText(lesson)); });
}

TEST(RoundTrip, KeepsLineBreaksWhereTheFormatHasThem)
{
    LessonPacket packet;
    packet.hasEnd = true;
    packet.marks = {{0, u"one\ntwo"_s}, {1.25, u"=\n;\n\\\n"_s}, {2, u"a\nb"_s}};
    const auto marksOf = [](const ReadLesson& read) { return read.lesson.packets.at(0).marks; };
    EXPECT_EQ(marksOf(readFfMetadata(ffMetadataText(packet))), packet.marks);
    EXPECT_EQ(marksOf(readMatroskaChapters(matroskaChaptersText(packet))), packet.marks);
    packet.marks[1].text = u"x\n;"_s;
    EXPECT_EQ(marksOf(readWebVtt(webVttText(packet))), packet.marks);
}

TEST(RoundTrip, WritesXmlThatCanBeReadWhateverTheText)
{
    LessonPacket packet;
    packet.hasEnd = true;
    const QString odd = QString(QChar(1)) + QChar(0xd800) + QChar(0xffff) + u'x';
    packet.marks = {{0, odd}, {1, odd}};
    const ReadLesson read = readMatroskaChapters(matroskaChaptersText(packet));
    ASSERT_FALSE(read.failure);
    EXPECT_EQ(read.lesson.packets[0].marks[0].text, QString(3, QChar(0xfffd)) + u'x');
}

} // namespace orvanta::test
