// The page in the list's place while nothing is open, and going on with a lesson.

#include "model/loaders.h"
#include "tests/window/start_page_fixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>

namespace orvanta::test {

/// Where a title without descenders is painted in the first row, which is not the current one then.
static QRect inkOfTitle(StartPageList& page)
{
    page.setCurrentIndex(page.model()->index(page.model()->rowCount() - 1, 0));
    page.scrollToTop();
    const QRect row = page.visualRect(page.model()->index(0, 0));
    const QImage picture = page.viewport()->grab(row).toImage();
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (QColor(picture.pixel(x, y)).lightness() > 165) { // only the title is so bright
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

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

TEST_F(StartPageTest, ShiftF10OpensTheMenuOfItsRowAsTheMenuKeyDoes)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    press(Qt::Key_End);
    QTest::keyClick(window->StartPage, Qt::Key_F10, Qt::ShiftModifier);
    const auto* menu = window->StartPage->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_FALSE(menu->actions()[1]->isEnabled()); // of the row that forgets: no lesson to take off
    const QRect row = window->StartPage->visualRect(window->StartPage->currentIndex());
    EXPECT_EQ(menu->pos(), window->StartPage->viewport()->mapToGlobal(row.bottomLeft() +
                                                                      QPoint(skin::kGrid, 0)));
}

TEST_F(StartPageTest, GrowsWithTheKeysOfTheTextsAndComesBack)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    const auto heights = [this] {
        const QAbstractItemModel& model = *window->StartPage->model();
        return std::pair(window->StartPage->visualRect(model.index(0, 0)).height(),
                         window->StartPage->visualRect(model.index(1, 0)).height());
    };
    const auto inkHeight = [this] { return inkOfTitle(*window->StartPage).height(); };
    const auto usual = heights();
    const int usualInk = inkHeight();
    ASSERT_GT(usualInk, 0);
    for (int i = 0; i < 5; ++i) { // to 200 percent
        QTest::keyClick(window->StartPage, Qt::Key_Plus, Qt::ControlModifier);
    }
    EXPECT_EQ(heights(), std::pair(2 * usual.first, 2 * usual.second));
    EXPECT_NEAR(inkHeight(), 2 * usualInk, 3);
    QTest::keyClick(window->StartPage, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(heights(), std::pair(2 * usual.first, 2 * usual.second));
    QTest::keyClick(window->StartPage, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(heights(), usual);
    EXPECT_EQ(inkHeight(), usualInk);
}

TEST_F(StartPageTest, TheTitleCanBeReadInTheLargestTextsOfANarrowWindow)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    const int usual = inkOfTitle(*window->StartPage).width();
    for (int i = 0; i < 9; ++i) { // to 300 percent
        QTest::keyClick(window->StartPage, Qt::Key_Plus, Qt::ControlModifier);
    }
    EXPECT_NEAR(inkOfTitle(*window->StartPage).width(), 3 * usual, 6);
}

TEST_F(StartPageTest, IsAsLargeAtTheNextStart)
{
    keepLesson(1, 0, {u"a"_s});
    show();
    const auto height = [this] {
        return window->StartPage->visualRect(window->StartPage->model()->index(0, 0)).height();
    };
    const int usual = height();
    QTest::keyClick(window->StartPage, Qt::Key_Plus, Qt::ControlModifier);
    const int larger = height();
    EXPECT_GT(larger, usual);
    show();
    EXPECT_EQ(height(), larger);
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

} // namespace orvanta::test
