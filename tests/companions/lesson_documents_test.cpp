// Lessons as packets and groups, written and read again.

#include "companions/exchange/lesson_documents.h"
#include "core/run_time_error.h"
#include "tests/companions/hostile_lessons.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

LessonPacket clips(int count)
{
    LessonPacket packet = {.title = u"Many"_s};
    for (int i = 0; i < count; ++i) {
        packet.clips.push_back({u"/m/%1.mp4"_s.arg(i), QString::number(i)});
    }
    return packet;
}

class LessonDocuments : public testing::Test
{
protected:
    [[nodiscard]] QStringList names() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    SettingsFolder folder;
};

} // namespace

TEST_F(LessonDocuments, KeepTimesAndTexts)
{
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        session::Dice dice(seed);
        LessonPacket packet = hostileMarks(dice);
        packet.markedClip = u"/media/clip.mp4"_s;
        for (LessonMark& mark : packet.marks) {
            mark.text = mark.text.trimmed(); // no document has outer blanks
        }
        const QString file = folder.file(u"a.vxl"_s);
        writeLesson({.packets = {packet}}, file);
        packet.title = u"a"_s;
        const ImportedLesson read = readLessonDocument(file);
        ASSERT_EQ(read.lesson.packets.size(), 1U) << seed;
        ASSERT_TRUE(isSamePacket(read.lesson.packets[0], packet)) << seed;
    }
}

TEST_F(LessonDocuments, KeepQuotesAroundATextAndPutBreaksOnOneLine)
{
    LessonPacket packet = clips(3);
    packet.clips[0].text = u"\"all of it\""_s;
    packet.clips[1].text = u"'a'"_s;
    packet.clips[2].text = u"two\nlines"_s;
    const QString file = folder.file(u"a.vxl"_s);
    writeLesson({.packets = {packet}}, file);
    const auto read = readLessonDocument(file).lesson.packets.at(0).clips;
    EXPECT_EQ(read[0].text, u"\"all of it\"");
    EXPECT_EQ(read[1].text, u"'a'");
    EXPECT_EQ(read[2].text, u"two lines");
}

TEST_F(LessonDocuments, OfSeveralPacketsAreAGroupBesideItsPackets)
{
    writeLesson({.packets = {clips(1), clips(2)}}, folder.file(u"Lesson 1.vxg"_s));
    EXPECT_EQ(names(), (QStringList{u"Lesson 1 1.vxl"_s, u"Lesson 1 2.vxl"_s, u"Lesson 1.vxg"_s}));
    const Lesson read = readLessonDocument(folder.file(u"Lesson 1.vxg"_s)).lesson;
    ASSERT_EQ(read.packets.size(), 2U);
    EXPECT_EQ(read.packets[1].title, u"Many");
    EXPECT_EQ(read.packets[1].clips.size(), 2U);
}

TEST_F(LessonDocuments, NameFilesBelowThemRelatively)
{
    const QString clip = folder.write(u"clip.mp4"_s, "x");
    LessonPacket packet = clips(1);
    packet.clips.push_back({clip, u"here"_s});
    writeLesson({.packets = {packet}}, folder.file(u"a.vxl"_s));
    const QByteArray bytes = folder.bytes(u"a.vxl"_s);
    EXPECT_TRUE(bytes.contains("path=clip.mp4\r\n")) << bytes.constData();
    EXPECT_TRUE(bytes.contains("path=/m/0.mp4\r\n"));
    EXPECT_EQ(readLessonDocument(folder.file(u"a.vxl"_s)).lesson.packets.at(0).clips.at(1).path,
              clip);
}

TEST_F(LessonDocuments, LeaveNothingNewWhenTheyCannotBeWritten)
{
    QDir().mkpath(folder.file(u"a 2.vxl/full"_s)); // in the way of the second packet
    EXPECT_THROW(writeLesson({.packets = {clips(1), clips(1)}}, folder.file(u"a.vxg"_s)),
                 RuntimeError);
    EXPECT_EQ(names(), QStringList());
    EXPECT_THROW(writeLesson({.packets = {clips(1)}}, folder.file(u"nowhere/a.vxl"_s)),
                 RuntimeError);
}

TEST_F(LessonDocuments, ProposeANameThatIsFree)
{
    const Lesson one = {.title = u"A/B: \"c\""_s, .packets = {clips(1)}};
    const Lesson two = {.title = u"..."_s, .packets = {clips(1), clips(1)}};
    EXPECT_EQ(proposedDocument(one, folder.path()), folder.file(u"A_B_ _c_.vxl"_s));
    writeLesson(one, proposedDocument(one, folder.path()));
    EXPECT_EQ(proposedDocument(one, folder.path()), folder.file(u"A_B_ _c_ (2).vxl"_s));
    EXPECT_EQ(proposedDocument(two, folder.path()), folder.file(u"lesson.vxg"_s));
    folder.write(u"lesson 1.vxl"_s, "");
    EXPECT_EQ(proposedDocument(two, folder.path()), folder.file(u"lesson (2).vxg"_s));
}

TEST_F(LessonDocuments, SplitWhatNoPacketHolds)
{
    const auto split = packetsThatFit(clips(40000));
    ASSERT_EQ(split.size(), 2U);
    EXPECT_EQ(split[0].clips.size(), kMostInPacket);
    EXPECT_EQ(split[1].clips.size(), 40000 - kMostInPacket);
    EXPECT_EQ(split[1].title, u"Many 2");

    LessonPacket marks = {.title = u"M"_s, .markedClip = u"/a"_s, .hasEnd = true};
    for (int i = 0; i < 40000; ++i) {
        marks.marks.push_back({i / 10.0, QString::number(i)});
    }
    const auto parts = packetsThatFit(marks);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].marks.size(), kMostInPacket);
    EXPECT_EQ(parts[1].marks.front(), parts[0].marks.back()); // nothing lies between them
    EXPECT_EQ(parts[1].marks.back().text, u"39999");
}

TEST_F(LessonDocuments, ThatAreNoneGiveNoPackets)
{
    folder.write(u"count.vxl"_s, "[main]\r\nfiles=many\r\n");
    folder.write(u"other.txt"_s, "[main]\r\nfiles=0\r\n");
    for (const QString& name : {u"count.vxl"_s, u"other.txt"_s, u"absent.vxg"_s}) {
        EXPECT_TRUE(readLessonDocument(folder.file(name)).lesson.packets.empty())
            << qPrintable(name);
    }
}

TEST_F(LessonDocuments, LeaveOutMarksWithoutATime)
{
    folder.write(u"a.vxl"_s,
                 "[main]\r\nfiles=1\r\nfile=/a.mp4\r\nbrakes=3\r\n[brake1]\r\ntime=000001,50\r\n"
                 "text=A\r\n[brake2]\r\ntime=soon\r\ntext=B\r\n[brake3]\r\ntime=2\r\ntext=C\r\n");
    const ImportedLesson read = readLessonDocument(folder.file(u"a.vxl"_s));
    EXPECT_EQ(read.lesson.packets.at(0).marks,
              (std::vector<LessonMark>{{1.5, u"A"_s}, {2, u"C"_s}}));
    ASSERT_EQ(read.leftOut.size(), 1U);
    EXPECT_EQ(read.leftOut[0].remark.detail, u"B");
}

} // namespace orvanta::test
