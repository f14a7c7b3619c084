#include "model/loaders.h"
#include "model/recent_lessons.h"
#include "model/recent_texts.h"
#include "tests/support/log_capture.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

PlaylistEntry packetOf(const QStringList& texts)
{
    PlaylistEntry packet;
    for (const QString& text : texts) {
        packet.Clips.push_back({.Time = {}, .Text = text, .Path = u"/clip.avi"_s});
    }
    packet.ClipCount = static_cast<qint64>(texts.size());
    return packet;
}

/// Brakes ten seconds apart from the tenth second on; the last one is the end mark.
PlaylistEntry brakesOf(const QStringList& texts)
{
    PlaylistEntry packet = packetOf(texts);
    packet.HasBrakes = true;
    int seconds = 0;
    for (ClipEntry& brake : packet.Clips) {
        brake.Time = QString::number(seconds += 10);
    }
    return packet;
}

PlaylistState playlistOf(std::vector<PlaylistEntry> packets)
{
    PlaylistState playlist;
    playlist.Document = u"/lessons/Lesson 5/Present perfect.vxg"_s;
    playlist.PlaylistCount = static_cast<qint64>(packets.size());
    playlist.Playlist = std::move(packets);
    return playlist;
}

RecentLesson lessonAt(const QString& path, int line = 1)
{
    return {.path = path,
            .title = QFileInfo(path).completeBaseName(),
            .packet = 1,
            .clip = line,
            .text = u"line %1"_s.arg(line),
            .seconds = 1.5,
            .line = line,
            .lines = 8,
            .over = false,
            .used = QDateTime(QDate(2026, 11, 14), QTime(12, 0))};
}

class RecentLessonsFile : public testing::Test
{
protected:
    RecentLessonsFile()
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
    }

    [[nodiscard]] RecentLessons recent() const { return RecentLessons(module); }
    [[nodiscard]] QStringList paths() const
    {
        QStringList all;
        for (const RecentLesson& lesson : recent().lessons()) {
            all.append(lesson.path);
        }
        return all;
    }
    [[nodiscard]] bool isThere() const { return QFileInfo::exists(home.file(u"recent.ini"_s)); }

    SettingsFolder home;
    Module1 module;
};

} // namespace

TEST_F(RecentLessonsFile, NothingKeptIsAnEmptyList)
{
    EXPECT_TRUE(recent().lessons().empty());
    EXPECT_FALSE(isThere());
}

TEST_F(RecentLessonsFile, GivesBackWhatWasKept)
{
    RecentLesson lesson = lessonAt(u"/lessons/Урок 5.vxl"_s, 3);
    lesson.text = u"\"She's been there\""_s;
    lesson.seconds = 12.345;
    recent().keep(lesson);
    const std::vector<RecentLesson> kept = recent().lessons();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_TRUE(kept.front().isSameAs(lesson));
    EXPECT_EQ(kept.front().used, lesson.used);
}

TEST_F(RecentLessonsFile, TheOneUsedLastIsFirstAndEachIsThereOnce)
{
    for (const QString& path : {u"/a.vxl"_s, u"/b.vxl"_s, u"/a.vxl"_s}) {
        recent().keep(lessonAt(path));
    }
    EXPECT_EQ(paths(), (QStringList{u"/a.vxl"_s, u"/b.vxl"_s}));
}

TEST_F(RecentLessonsFile, KeepsTwelveAtMost)
{
    for (int i = 1; i <= 14; ++i) {
        recent().keep(lessonAt(u"/%1.vxl"_s.arg(i)));
    }
    ASSERT_EQ(paths().size(), 12);
    EXPECT_EQ(paths().first(), u"/14.vxl"_s);
    EXPECT_EQ(paths().last(), u"/3.vxl"_s);
}

TEST_F(RecentLessonsFile, IsNotWrittenWhenOnlyTheTimeOfUseIsAnother)
{
    RecentLesson lesson = lessonAt(u"/a.vxl"_s);
    recent().keep(lesson);
    const QByteArray before = home.bytes(u"recent.ini"_s);
    lesson.used = lesson.used.addDays(1);
    recent().keep(lesson);
    EXPECT_EQ(home.bytes(u"recent.ini"_s), before);
    lesson.seconds += 1;
    recent().keep(lesson);
    EXPECT_NE(home.bytes(u"recent.ini"_s), before);
}

TEST_F(RecentLessonsFile, WhatIsTakenOffLeavesNothingBehind)
{
    recent().keep(lessonAt(u"/private.vxl"_s));
    recent().keep(lessonAt(u"/other.vxl"_s));
    recent().takeOff(u"/private.vxl"_s);
    EXPECT_EQ(paths(), QStringList{u"/other.vxl"_s});
    EXPECT_FALSE(home.bytes(u"recent.ini"_s).contains("private"));
    recent().takeOff(u"/other.vxl"_s);
    EXPECT_FALSE(isThere());
}

TEST_F(RecentLessonsFile, ForgettingRemovesTheFile)
{
    recent().keep(lessonAt(u"/a.vxl"_s));
    ASSERT_TRUE(isThere());
    recent().forget();
    EXPECT_FALSE(isThere());
    EXPECT_TRUE(recent().lessons().empty());
}

TEST_F(RecentLessonsFile, KeepsAndShowsNothingWhenTheSettingsSaySo)
{
    recent().keep(lessonAt(u"/a.vxl"_s));
    WriteIni(u"recent"_s, u"keep"_s, u"0"_s, home.ini());
    EXPECT_TRUE(recent().lessons().empty());
    recent().forget();
    recent().keep(lessonAt(u"/b.vxl"_s));
    EXPECT_FALSE(isThere());
}

TEST_F(RecentLessonsFile, AbsurdNumbersAreThoseOfALessonThatHasJustBegun)
{
    home.write(u"recent.ini"_s, "[lesson1]\npath=/a.vxl\npacket=-7\nclip=99999999999\n"
                                "seconds=nan\nline=12\nlines=-3\nused=never\n"
                                "[lesson2]\npath=/b.vxl\npacket=x\nseconds=1e300\nline=9\nlines=4\n"
                                "[lesson3]\npath=/c.vxl\nseconds=-4\n");
    const std::vector<RecentLesson> kept = recent().lessons();
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].title, u"a"_s);
    EXPECT_EQ(kept[0].packet, 1);
    EXPECT_EQ(kept[0].clip, 0);
    EXPECT_EQ(kept[0].line, 0);
    EXPECT_FALSE(kept[0].used.isValid());
    EXPECT_EQ(kept[1].line, 4);
    for (const RecentLesson& lesson : kept) {
        EXPECT_EQ(lesson.seconds, 0);
    }
}

TEST_F(RecentLessonsFile, WhatNamesNoFileIsLeftOutAndSaid)
{
    home.write(u"recent.ini"_s, "[lesson1]\npath=http://example.org/a.vxl\n"
                                "[lesson2]\npath=relative.vxl\n[lesson3]\npath=/c.vxl\n");
    const LogCapture log("orvanta.errors");
    EXPECT_EQ(paths(), QStringList{u"/c.vxl"_s});
    EXPECT_EQ(LogCapture::lines().size(), 2);
}

TEST_F(RecentLessonsFile, ASpoiltFileIsAnEmptyListAndIsReplaced)
{
    home.write(u"recent.ini"_s, QByteArray(5000, '\xff') + QByteArray(100, '\0') + "[lesson1\npa");
    EXPECT_TRUE(recent().lessons().empty());
    recent().keep(lessonAt(u"/a.vxl"_s));
    EXPECT_EQ(paths(), QStringList{u"/a.vxl"_s});
}

TEST_F(RecentLessonsFile, AFolderOrAPipeInItsPlaceHangsNothing)
{
    ASSERT_TRUE(QDir(home.path()).mkdir(u"recent.ini"_s));
    const LogCapture log("orvanta.errors");
    EXPECT_TRUE(recent().lessons().empty());
    recent().keep(lessonAt(u"/a.vxl"_s));
    EXPECT_FALSE(LogCapture::lines().isEmpty());
    ASSERT_TRUE(QDir(home.path()).rmdir(u"recent.ini"_s));
    ASSERT_EQ(mkfifo(QFile::encodeName(home.file(u"recent.ini"_s)).constData(), 0600), 0);
    EXPECT_TRUE(recent().lessons().empty());
}

TEST_F(RecentLessonsFile, AFolderThatCannotBeWrittenIsALogLine)
{
    module.ApplicationFolder = u"/proc"_s; // not even root may write there
    const LogCapture log("orvanta.errors");
    recent().keep(lessonAt(u"/a.vxl"_s));
    EXPECT_FALSE(LogCapture::lines().isEmpty());
    EXPECT_TRUE(recent().lessons().empty());
}

TEST_F(RecentLessonsFile, APathWithALineBreakIsNotKept)
{
    const LogCapture log("orvanta.errors");
    recent().keep(lessonAt(u"/a\nb.vxl"_s));
    EXPECT_FALSE(isThere());
    EXPECT_EQ(LogCapture::lines().size(), 1);
}

TEST(RecentLesson, IsThereOnlyAsAFile)
{
    const SettingsFolder home;
    EXPECT_TRUE(lessonAt(home.write(u"a.vxl"_s, "[main]")).isThere());
    EXPECT_FALSE(lessonAt(home.file(u"gone.vxl"_s)).isThere());
    EXPECT_FALSE(lessonAt(home.path()).isThere());
    const QString pipe = home.file(u"pipe.vxl"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(lessonAt(pipe).isThere());
}

TEST(RecentLesson, CountsTheLinesOfAllPacketsWithoutEndMarks)
{
    const PlaylistState playlist = playlistOf(
        {packetOf({u"a"_s, u"b"_s}), brakesOf({u"c"_s, u"d"_s, u"End"_s}), packetOf({u"e"_s})});
    const RecentLesson lesson = recentLesson(playlist, {2, 2, 1.25});
    EXPECT_EQ(lesson.path, playlist.Document);
    EXPECT_EQ(lesson.title, u"Present perfect"_s);
    EXPECT_EQ(lesson.folder(), u"Lesson 5"_s);
    EXPECT_EQ(lesson.text, u"d"_s);
    EXPECT_EQ(lesson.seconds, 1.25);
    EXPECT_EQ(lesson.line, 4);
    EXPECT_EQ(lesson.lines, 5);
}

TEST(RecentLesson, TheEndMarkIsTheLastBrakeWhoseTimeCanBeRead)
{
    PlaylistEntry packet = brakesOf({u"a"_s, u"b"_s, u"End"_s, u"dropped.avi"_s});
    packet.Clips.back().Time = QString();
    const RecentLesson lesson = recentLesson(playlistOf({packet}), {1, 2, 0});
    EXPECT_EQ(lesson.line, 2);
    EXPECT_EQ(lesson.lines, 2);
}

TEST(RecentLesson, ALineIsFoundByItsTextNearestToItsPlace)
{
    const PlaylistState before =
        playlistOf({packetOf({u"one"_s, u"again"_s, u"two"_s, u"again"_s})});
    const RecentLesson lesson = recentLesson(before, {1, 4, 2});
    EXPECT_EQ(placeIn(before, lesson), (LessonPlace{1, 4, 2}));
    const PlaylistState longer = playlistOf(
        {packetOf({u"new"_s}), packetOf({u"one"_s, u"again"_s, u"two"_s, u"again"_s, u"end"_s})});
    EXPECT_EQ(placeIn(longer, lesson), (LessonPlace{2, 2, 2})); // as near as the other: the first
    const PlaylistState shifted =
        playlistOf({packetOf({u"again"_s, u"one"_s, u"x"_s, u"y"_s, u"again"_s})});
    EXPECT_EQ(placeIn(shifted, lesson), (LessonPlace{1, 5, 2}));
}

TEST(RecentLesson, ATextThatIsGoneLeavesTheNumberAndBeginsTheLineAnew)
{
    const RecentLesson lesson =
        recentLesson(playlistOf({packetOf({u"a"_s, u"b"_s, u"c"_s})}), {1, 2, 5});
    EXPECT_EQ(placeIn(playlistOf({packetOf({u"x"_s, u"y"_s, u"z"_s})}), lesson),
              (LessonPlace{1, 2, 0}));
    EXPECT_EQ(placeIn(playlistOf({packetOf({u"x"_s})}), lesson), (LessonPlace{1, 1, 0}));
    EXPECT_EQ(placeIn(playlistOf({}), lesson), (LessonPlace{1, 1, 0}));
}

TEST(RecentLesson, AnEndMarkWithTheTextOfTheLineIsNotIt)
{
    const RecentLesson lesson =
        recentLesson(playlistOf({brakesOf({u"a"_s, u"End"_s, u"b"_s, u"x"_s})}), {1, 2, 1});
    EXPECT_EQ(placeIn(playlistOf({brakesOf({u"a"_s, u"b"_s, u"End"_s})}), lesson),
              (LessonPlace{1, 2, 0}));
}

TEST(RecentLesson, APlaceBehindTheEndOfItsLineIsTheLinesBeginning)
{
    const PlaylistState playlist = playlistOf({brakesOf({u"a"_s, u"b"_s, u"End"_s})});
    EXPECT_EQ(startOfLine(playlist, 1, 2), 20);
    EXPECT_EQ(placeIn(playlist, recentLesson(playlist, {1, 1, 9})), (LessonPlace{1, 1, 9}));
    EXPECT_EQ(placeIn(playlist, recentLesson(playlist, {1, 1, 10})), (LessonPlace{1, 1, 0}));
}

TEST(RecentLesson, OneThatIsOverBeginsAnew)
{
    const PlaylistState playlist = playlistOf({packetOf({u"a"_s, u"b"_s})});
    RecentLesson lesson = recentLesson(playlist, {1, 2, 3});
    lesson.over = true;
    EXPECT_EQ(placeIn(playlist, lesson), (LessonPlace{1, 1, 0}));
}

TEST(RecentLesson, OnlyWhatIsAllThatIsOpenIsADocument)
{
    const SettingsFolder home;
    const QString packet =
        home.write(u"a.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\ntext=one\n");
    const QString group = home.write(u"g.vxg"_s, "[main]\nfiles=1\n[file1]\npath=a.vxl\ntext=A\n");
    PlaylistState playlist;
    OpenPacket(playlist, packet);
    EXPECT_EQ(playlist.Document, packet);
    OpenGroup(playlist, group);
    EXPECT_EQ(playlist.Document, group);
    appendPacket(playlist, packet);
    EXPECT_EQ(playlist.Document, QString());
    clearPlaylist(playlist);
    appendPacket(playlist, packet);
    EXPECT_EQ(playlist.Document, packet);
    appendClip(playlist, 1, u"/b.avi"_s, u"b"_s);
    EXPECT_EQ(playlist.Document, QString());
    OpenFiles(playlist, {u"/b.avi"_s});
    EXPECT_EQ(playlist.Document, QString());
}

TEST(RecentTexts, SayTheDayAsPeopleDo)
{
    const QDate today(2026, 1, 2);
    const auto english = [&](QDate day) { return dayText(day, today, TextLanguage::English); };
    const auto russian = [&](QDate day) { return dayText(day, today, TextLanguage::Russian); };
    EXPECT_EQ(english(today), u"today"_s);
    EXPECT_EQ(english(QDate(2026, 1, 1)), u"yesterday"_s);
    EXPECT_EQ(english(QDate(2025, 11, 14)), u"14 November 2025"_s);
    EXPECT_EQ(english(QDate(2026, 3, 1)), u"1 March"_s); // the clock was wrong once
    EXPECT_EQ(english({}), QString());
    EXPECT_EQ(russian(today), u"сегодня"_s);
    EXPECT_EQ(russian(QDate(2026, 11, 14)), u"14 ноября"_s);
}

TEST(RecentTexts, SayThePlaceAndTheWholeLesson)
{
    RecentLesson lesson = lessonAt(u"/home/samples/A minute of breathing.vxl"_s, 3);
    const QDate today(2026, 11, 15);
    EXPECT_EQ(placeText(lesson, today, TextLanguage::English), u"3 of 8, yesterday"_s);
    EXPECT_EQ(placeText(lesson, today, TextLanguage::Russian), u"3 из 8, вчера"_s);
    EXPECT_EQ(spokenText(lesson, true, today, TextLanguage::English),
              u"A minute of breathing, samples, 3 of 8, yesterday"_s);
    EXPECT_EQ(spokenText(lesson, false, today, TextLanguage::English),
              u"A minute of breathing, samples, not found"_s);
    lesson.over = true;
    EXPECT_EQ(placeText(lesson, QDate(2026, 12, 1), TextLanguage::English),
              u"finished, 14 November"_s);
    lesson = RecentLesson();
    EXPECT_EQ(placeText(lesson, today, TextLanguage::English), QString());
}

} // namespace orvanta::test
