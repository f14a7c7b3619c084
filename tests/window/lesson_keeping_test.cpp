// When the place in a lesson is kept, and a launch that asks for the last one.

#include "playback/lesson_controls.h"
#include "tests/window/start_page_fixture.h"

namespace orvanta::test {

class LessonKeeping : public StartPageTest
{};

TEST_F(LessonKeeping, APlaceIsKeptWhenAnotherIsOpened)
{
    option("as");
    showWithKeeper();
    const QString first = writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s});
    pickers.answer = {first};
    click(window->Image14);
    ASSERT_TRUE(runs());
    ASSERT_TRUE(start(1, 2));
    control.playTo(3.25);
    EXPECT_TRUE(kept().empty());
    pickers.answer = {writePacket(u"second.vxl"_s, {u"c"_s})};
    click(window->Image14);
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(kept().front().path, first);
    EXPECT_EQ(kept().front().clip, 2);
    EXPECT_EQ(kept().front().text, u"b"_s);
    EXPECT_EQ(kept().front().seconds, 3.25);
    EXPECT_EQ(kept().front().line, 2);
    EXPECT_EQ(kept().front().lines, 2);
}

TEST_F(LessonKeeping, APlaceIsKeptWhenALaunchHandsAnotherOver)
{
    option("as");
    showWithKeeper();
    const QString first = writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s});
    engine->openAndPlay(first);
    ASSERT_TRUE(runs());
    control.playTo(2);
    engine->openAndPlay(writePacket(u"second.vxl"_s, {u"c"_s}));
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(kept().front().seconds, 2);
}

TEST_F(LessonKeeping, APlaceIsKeptAtTheProgramsEnd)
{
    option("as");
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    control.playTo(2);
    engine->closeProgram();
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(kept().front().seconds, 2);
}

TEST_F(LessonKeeping, APlaceIsKeptAndShownWhenClosingHidesTheProgram)
{
    option("as");
    option("nc");
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    control.playTo(2);
    engine->pressClose();
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(kept().front().seconds, 2);
    window->showMainWindow();
    EXPECT_TRUE(isPageShown());
}

TEST_F(LessonKeeping, APlaceIsKeptSomeTimeAfterAPauseAndAfterAStop)
{
    option("as");
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    control.playTo(2);
    click(window->Image3);
    EXPECT_TRUE(kept().empty());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !kept().empty(); }, 30000));
    EXPECT_EQ(kept().front().seconds, 2);
    click(window->Image5);
    ASSERT_TRUE(runs());
    click(window->Image4);
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept().front().seconds == 0; }, 30000));
}

TEST_F(LessonKeeping, WhileItRunsThePlaceIsKeptEveryNowAndThen)
{
    option("as");
    setting("recent", "seconds", u"1"_s);
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    control.playTo(2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !kept().empty(); }, 30000));
    control.playTo(6);
    EXPECT_TRUE(QTest::qWaitFor([this] { return kept().front().seconds == 6; }, 30000));
}

TEST_F(LessonKeeping, ALessonThatIsPlayedToItsEndIsFinishedAndBeginsAnew)
{
    for (const char* key : {"as", "agnc", "agnp"}) {
        option(key);
    }
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    ASSERT_TRUE(start(1, 2));
    control.reachEnd();
    engine->tick();
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_TRUE(kept().front().over);
    EXPECT_EQ(kept().front().line, 2);
    engine->closeProgram();
    EXPECT_TRUE(kept().front().over);
}

TEST_F(LessonKeeping, LooseClipsAndWhatHasNotBegunAreNotKept)
{
    option("as");
    showWithKeeper();
    pickers.answer = {home.write(u"loose.avi"_s, "media")};
    click(window->Image8);
    ASSERT_TRUE(runs());
    option("as", u"0"_s);
    pickers.answer = {writePacket(u"first.vxl"_s, {u"a"_s})};
    click(window->Image14);
    engine->closeProgram();
    EXPECT_TRUE(kept().empty());
}

TEST_F(LessonKeeping, WhatAnEditorMadeForTheMomentIsNotKept)
{
    option("as");
    showWithKeeper();
    packetEditor = [this] { return writePacket(u"scratch.vxl"_s, {u"a"_s}); };
    window->cp->trigger();
    ASSERT_TRUE(runs());
    engine->closeProgram();
    EXPECT_TRUE(kept().empty());
}

TEST_F(LessonKeeping, ContinueGoesOnWithTheLastLesson)
{
    option("as");
    keepLesson(2, 4.5, {u"a"_s, u"b"_s});
    setting("ftl", "1", u"--continue"_s);
    setting("ftl", "num", u"1"_s);
    showWithKeeper();
    engine->tick();
    ASSERT_TRUE(runs());
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.CurrentPosition(), 4.5);
    EXPECT_EQ(home.value("ftl", "num"), u"0"_s);
}

TEST_F(LessonKeeping, ContinueWithNothingKeptStartsEmptyAndSaysSo)
{
    const LogCapture log("orvanta.startup");
    setting("ftl", "1", u"--continue"_s);
    setting("ftl", "num", u"1"_s);
    showWithKeeper();
    engine->tick();
    EXPECT_TRUE(QTest::qWaitFor([] { return LogCapture::lines().size() == 1; }));
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(0));
}

TEST_F(LessonKeeping, ContinueLeavesALessonThatIsOnAndLetsAPausedOneRun)
{
    option("as");
    showWithKeeper();
    engine->openAndPlay(writePacket(u"first.vxl"_s, {u"a"_s, u"b"_s}));
    ASSERT_TRUE(runs());
    control.playTo(2);
    control.calls.clear();
    Q_EMIT engine->lesson().continueAsked();
    QCoreApplication::processEvents();
    EXPECT_EQ(control.calls, QStringList());
    click(window->Image3);
    Q_EMIT engine->lesson().continueAsked();
    ASSERT_TRUE(runs());
    EXPECT_EQ(control.CurrentPosition(), 2);
}

TEST_F(LessonKeeping, FilesThatAreQueuedWithContinueComeFirst)
{
    option("as");
    keepLesson(2, 4.5, {u"a"_s, u"b"_s});
    setting("ftl", "1", u"--continue"_s);
    setting("ftl", "2", writePacket(u"other.vxl"_s, {u"o"_s}));
    setting("ftl", "num", u"2"_s);
    showWithKeeper();
    engine->tick();
    ASSERT_TRUE(runs());
    EXPECT_EQ(control.FileName(), home.file(u"o.avi"_s));
}

} // namespace orvanta::test
