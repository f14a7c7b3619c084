// The page in the list's place while nothing is open, and going on with a lesson.

#include "model/loaders.h"
#include "playback/lesson_controls.h"
#include "playback/lesson_keeper.h"
#include "tests/window/window_fixture.h"
#include "window/start_page.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDateTime>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>

#include <cmath>

namespace orvanta::test {

class StartPageTest : public Form2Test
{
protected:
    ~StartPageTest() override { keeper.reset(); }

    /// Kept as left at this line of eight.
    void keep(const QString& path, int line = 1, double seconds = 0, const QString& text = {})
    {
        RecentLessons(module).keep({.path = path,
                                    .title = QFileInfo(path).completeBaseName(),
                                    .packet = 1,
                                    .clip = line,
                                    .text = text,
                                    .seconds = seconds,
                                    .line = line,
                                    .lines = 8,
                                    .over = false,
                                    .used = QDateTime::currentDateTime().addDays(-1)});
    }

    QString keepLesson(int line, double seconds, const QStringList& texts)
    {
        const QString path = writePacket(u"lesson.vxl"_s, texts);
        keep(path, line, seconds, texts.value(line - 1));
        return path;
    }

    void showWithKeeper()
    {
        show();
        keeper = std::make_unique<LessonKeeper>(module, *engine, control);
    }

    [[nodiscard]] QStringList rows() const
    {
        QStringList all;
        const QAbstractItemModel& model = *window->StartPage->model();
        for (int i = 0; i < model.rowCount(); ++i) {
            all.append(model.index(i, 0).data(Qt::AccessibleTextRole).toString());
        }
        return all;
    }
    [[nodiscard]] bool isPageShown() const
    {
        return window->StartPage->isVisible() && !window->List1->isVisible();
    }
    [[nodiscard]] std::vector<RecentLesson> kept() const { return RecentLessons(module).lessons(); }
    void press(Qt::Key key) const { QTest::keyClick(window->StartPage, key); }
    void clickPageRow(int row) const
    {
        const QModelIndex index = window->StartPage->model()->index(row, 0);
        window->StartPage->scrollTo(index);
        QTest::mouseClick(window->StartPage->viewport(), Qt::LeftButton, {},
                          window->StartPage->visualRect(index).center());
    }
    [[nodiscard]] bool runs() const
    {
        return QTest::qWaitFor([this] {
            engine->tick();
            return control.CurrentState() == MediaControl::Running;
        });
    }
    [[nodiscard]] std::pair<int, int> place() const
    {
        return {module.playlist.CurrentPacket.value(), module.playlist.CurrentClip.value()};
    }
    static std::pair<int, int> at(int packet, int clip) { return {packet, clip}; }

    std::unique_ptr<LessonKeeper> keeper;
};

TEST_F(StartPageTest, NothingKeptIsTheEmptyListAsEver)
{
    show();
    EXPECT_TRUE(window->List1->isVisible());
    EXPECT_FALSE(window->StartPage->isVisible());
    EXPECT_EQ(window->Text2->placeholderText(), QString());
    EXPECT_TRUE(window->List1->hasFocus());
}

TEST_F(StartPageTest, ShowsWhatWasKeptUntilSomethingIsOpen)
{
    const QString path = keepLesson(3, 1, {u"a"_s, u"b"_s, u"c"_s});
    show();
    EXPECT_TRUE(isPageShown());
    EXPECT_TRUE(window->StartPage->hasFocus());
    const QString folder = QFileInfo(home.path()).fileName();
    EXPECT_EQ(rows(),
              (QStringList{u"lesson, %1, 3 of 8, yesterday"_s.arg(folder), u"Forget these"_s}));
    EXPECT_EQ(window->Text2->placeholderText(), u"Open a lesson, or go on where you stopped"_s);
    pickers.answer = {path};
    click(window->Image14);
    EXPECT_FALSE(window->StartPage->isVisible());
    EXPECT_TRUE(window->List1->isVisible());
    EXPECT_TRUE(window->List1->hasFocus());
    EXPECT_EQ(window->Text2->placeholderText(), QString());
    clearPlaylist(module.playlist);
    window->clearList();
    EXPECT_TRUE(isPageShown());
}

TEST_F(StartPageTest, SpeaksRussianToo)
{
    keepLesson(3, 1, {u"a"_s, u"b"_s, u"c"_s});
    show(2);
    EXPECT_TRUE(rows().value(0).endsWith(u"3 из 8, вчера"_s)) << qPrintable(rows().value(0));
    EXPECT_EQ(rows().value(1), u"Забыть эти уроки"_s);
    EXPECT_EQ(window->StartPage->accessibleName(), u"Где вы остановились"_s);
}

TEST_F(StartPageTest, ReturnGoesOnAtTheLineAndThePlaceInIt)
{
    option("as");
    keepLesson(2, 4.5, {u"a"_s, u"b"_s, u"c"_s});
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(runs());
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.FileName(), home.file(u"b.avi"_s));
    EXPECT_EQ(control.CurrentPosition(), 4.5);
    EXPECT_EQ(window->Text2->text(), u"b"_s);
    EXPECT_EQ(window->List1->cursorLine(), 3);
    // The next line begins at its beginning, and so does this one when it is begun again.
    ASSERT_TRUE(start(1, 3));
    EXPECT_EQ(control.CurrentPosition(), 0);
    ASSERT_TRUE(start(1, 2));
    EXPECT_EQ(control.CurrentPosition(), 0);
}

TEST_F(StartPageTest, AClickGoesOnToo)
{
    option("as");
    keepLesson(2, 1, {u"a"_s, u"b"_s});
    keep(writePacket(u"other.vxl"_s, {u"o"_s}), 1, 2.5, u"o"_s);
    show();
    clickPageRow(1);
    ASSERT_TRUE(runs());
    EXPECT_EQ(control.FileName(), home.file(u"b.avi"_s));
}

TEST_F(StartPageTest, APacketOfBrakesGoesOnAtItsBrakeAndThePlaceBehindIt)
{
    option("as");
    home.write(u"media.avi"_s, "media");
    const QString path = home.write(
        u"brakes.vxl"_s, "[main]\nfiles=1\nfile=media.avi\nbrakes=3\n[brake1]\ntime=1\ntext=one\n"
                         "[brake2]\ntime=4\ntext=two\n[brake3]\ntime=9\ntext=End\n");
    keep(path, 2, 1.5, u"two"_s);
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(runs());
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.CurrentPosition(), 5.5);
}

TEST_F(StartPageTest, WithoutPlayingAfterOpeningThePlaceIsWherePlayBegins)
{
    option("as", u"0"_s);
    keepLesson(2, 4.5, {u"a"_s, u"b"_s, u"c"_s});
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window->StartPage->isVisible(); }));
    EXPECT_EQ(control.FileName(), QString());
    EXPECT_EQ(window->List1->cursorLine(), 3);
    engine->tick();
    click(window->Image5);
    ASSERT_TRUE(runs());
    EXPECT_EQ(control.FileName(), home.file(u"b.avi"_s));
    EXPECT_EQ(control.CurrentPosition(), 4.5);
}

TEST_F(StartPageTest, APlaceThatWasNotBegunIsNotThatOfAnotherLesson)
{
    option("as", u"0"_s);
    keepLesson(1, 4.5, {u"a"_s, u"b"_s});
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window->StartPage->isVisible(); }));
    pickers.answer = {writePacket(u"other.vxl"_s, {u"o"_s})};
    click(window->Image14);
    engine->tick();
    click(window->Image5);
    ASSERT_TRUE(runs());
    EXPECT_EQ(control.FileName(), home.file(u"o.avi"_s));
    EXPECT_EQ(control.CurrentPosition(), 0);
}

TEST_F(StartPageTest, AnExtensionInCapitalsIsThePacketThatItWas)
{
    option("as");
    keep(writePacket(u"LESSON.VXL"_s, {u"a"_s, u"b"_s}), 2, 1, u"b"_s);
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(runs());
    EXPECT_EQ(place(), at(1, 2));
}

TEST_F(StartPageTest, ALessonThatIsGoneSaysSoStaysAndCanBeTakenOff)
{
    keep(home.file(u"gone.vxl"_s));
    const QString pipe = home.path();
    keep(pipe); // a folder: no lesson either
    const LogCapture log("orvanta.errors");
    show();
    EXPECT_TRUE(rows().value(0).endsWith(u"not found"_s));
    EXPECT_TRUE(rows().value(1).endsWith(u"not found"_s));
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([] { return !LogCapture::lines().isEmpty(); }));
    EXPECT_TRUE(isPageShown());
    press(Qt::Key_Delete);
    ASSERT_TRUE(QTest::qWaitFor([this] { return rows().size() == 2; }));
    EXPECT_EQ(kept().size(), 1U);
    EXPECT_TRUE(window->StartPage->hasFocus());
    press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->List1->isVisible(); }));
    EXPECT_TRUE(kept().empty());
    EXPECT_FALSE(reported.has_value());
}

TEST_F(StartPageTest, ForgettingEmptiesListAndFileAtOnce)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    press(Qt::Key_End);
    press(Qt::Key_Delete); // not a lesson: nothing
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->StartPage->isVisible(); }));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"recent.ini"_s)));
}

TEST_F(StartPageTest, TheMenuOpensTakesOffAndForgets)
{
    keepLesson(1, 0, {u"a"_s});
    keep(home.file(u"gone.vxl"_s));
    show();
    const auto menu = [this] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(window->StartPage, &event);
        return window->StartPage->findChild<QMenu*>();
    };
    QMenu* opened = menu();
    ASSERT_NE(opened, nullptr);
    ASSERT_EQ(opened->actions().size(), 4);
    EXPECT_FALSE(opened->actions()[0]->isEnabled()); // it is gone
    opened->actions()[1]->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows().size() == 2; }));
    opened->close();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return window->StartPage->findChild<QMenu*>() == nullptr; }));
    opened = menu();
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->actions()[0]->isEnabled());
    opened->actions()[3]->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->StartPage->isVisible(); }));
    EXPECT_TRUE(kept().empty());
    opened->close();
}

TEST_F(StartPageTest, FilesDroppedOnItAreDroppedOnTheList)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(home.write(u"dropped.avi"_s, "media"))});
    const QPoint place = window->StartPage->viewport()->rect().center();
    QDragEnterEvent enters(place, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window->StartPage->viewport(), &enters);
    EXPECT_TRUE(enters.isAccepted());
    QDropEvent drops(place, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window->StartPage->viewport(), &drops);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->StartPage->isVisible(); }));
    EXPECT_EQ(module.playlist.entryCount(), 1);
}

TEST_F(StartPageTest, NothingIsShownWhenTheSettingsSayThatNothingIsKept)
{
    keepLesson(1, 0, {u"a"_s});
    setting("recent", "keep", u"0"_s);
    showWithKeeper();
    EXPECT_FALSE(window->StartPage->isVisible());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"recent.ini"_s)));
}

TEST_F(StartPageTest, TextsCanBeReadOnTheirGrounds)
{
    const auto light = [](const QColor& colour) {
        const auto part = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
               0.0722 * part(colour.blueF());
    };
    const auto contrast = [&](const QColor& a, const QColor& b) {
        const double x = light(a) + 0.05;
        const double y = light(b) + 0.05;
        return std::max(x, y) / std::min(x, y);
    };
    EXPECT_GE(contrast(skin::kText, skin::kAccentDeep), 4.5);
    EXPECT_GE(contrast(skin::kTextMuted, skin::kSunken), 4.5);
    EXPECT_GE(contrast(skin::kTextMuted, skin::kRaised), 4.5);
    EXPECT_GE(contrast(skin::kGone, skin::kSunken), 4.5);
    EXPECT_GE(contrast(skin::kGone, skin::kRaised), 4.5);
}

TEST_F(StartPageTest, APlaceIsKeptWhenAnotherIsOpened)
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

TEST_F(StartPageTest, APlaceIsKeptWhenALaunchHandsAnotherOver)
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

TEST_F(StartPageTest, APlaceIsKeptAtTheProgramsEnd)
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

TEST_F(StartPageTest, APlaceIsKeptAndShownWhenClosingHidesTheProgram)
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

TEST_F(StartPageTest, APlaceIsKeptSomeTimeAfterAPauseAndAfterAStop)
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

TEST_F(StartPageTest, WhileItRunsThePlaceIsKeptEveryNowAndThen)
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

TEST_F(StartPageTest, ALessonThatIsPlayedToItsEndIsFinishedAndBeginsAnew)
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

TEST_F(StartPageTest, LooseClipsAndWhatHasNotBegunAreNotKept)
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

TEST_F(StartPageTest, WhatAnEditorMadeForTheMomentIsNotKept)
{
    option("as");
    showWithKeeper();
    packetEditor = [this] { return writePacket(u"scratch.vxl"_s, {u"a"_s}); };
    window->cp->trigger();
    ASSERT_TRUE(runs());
    engine->closeProgram();
    EXPECT_TRUE(kept().empty());
}

TEST_F(StartPageTest, ContinueGoesOnWithTheLastLesson)
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

TEST_F(StartPageTest, ContinueWithNothingKeptStartsEmptyAndSaysSo)
{
    const LogCapture log("orvanta.startup");
    setting("ftl", "1", u"--continue"_s);
    setting("ftl", "num", u"1"_s);
    showWithKeeper();
    engine->tick();
    EXPECT_TRUE(QTest::qWaitFor([] { return LogCapture::lines().size() == 1; }));
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(0));
}

TEST_F(StartPageTest, ContinueLeavesALessonThatIsOnAndLetsAPausedOneRun)
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

TEST_F(StartPageTest, FilesThatAreQueuedWithContinueComeFirst)
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
