// What is exported is imported as it was: hundreds of lessons for each format.

#include "companions/exchange/cue.h"
#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/labels.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/matroska_chapters.h"
#include "companions/exchange/pls.h"
#include "companions/exchange/time_list.h"
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

/// Some bytes gone, doubled or replaced.
static QByteArray spoilt(QByteArray bytes, session::Dice& dice)
{
    for (int changes = 1 + dice.below(6); changes > 0 && !bytes.isEmpty(); --changes) {
        const int at = dice.below(static_cast<int>(bytes.size()));
        const int count = dice.below(20);
        const int kind = dice.below(3);
        kind == 0   ? bytes.remove(at, count)
        : kind == 1 ? bytes.insert(at, bytes.mid(at, count))
                    : bytes.replace(at, 1, QByteArray(1, static_cast<char>(dice.below(256))));
    }
    return bytes;
}

/// Whatever is read makes sense: times in order, none of them negative.
static void expectSense(const ReadLesson& read, int seed)
{
    for (const LessonPacket& packet : read.lesson.packets) {
        double before = 0;
        for (const LessonMark& mark : packet.marks) {
            ASSERT_GE(mark.seconds, before) << "seed " << seed;
            ASSERT_LE(mark.seconds, 999999) << "seed " << seed;
            before = mark.seconds;
        }
    }
}

TEST(SpoiltFiles, GiveALessonOrAFailureAndAlwaysEnd)
{
    int failures = 0;
    for (int seed = 0; seed < 2 * kTimes; ++seed) {
        session::Dice dice(static_cast<std::uint32_t>(seed));
        const LessonPacket packet = hostileMarks(dice);
        const QByteArray sources[] = {webVttText(packet).toUtf8(), ffMetadataText(packet).toUtf8(),
                                      matroskaChaptersText(packet),
                                      m3uText(hostileLesson(dice)).toUtf8(),
                                      xspfText(hostileLesson(dice))};
        for (const QByteArray& source : sources) {
            const QByteArray bytes = spoilt(source, dice);
            const QString text = QString::fromUtf8(bytes);
            for (const ReadLesson& read :
                 {readWebVtt(text), readFfMetadata(text), readM3u(text), readPls(text),
                  readCue(text), readLabels(text), readTimeList(text), readXspf(bytes),
                  readMatroskaChapters(bytes)}) {
                failures += read.failure ? 1 : 0;
                ASSERT_NO_FATAL_FAILURE(expectSense(read, seed));
            }
        }
    }
    EXPECT_GT(failures, 1000);
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
