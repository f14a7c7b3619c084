// Closing, minimising, activating, moving and resizing the main window.

#include "platform/screen/window_basics.h"
#include "tests/window/window_fixture.h"

#include <QFile>

namespace orvanta::test {

using MainWindow = Form2Test;

TEST_F(MainWindow, CloseEndsTheProgramAndDeletesTheScratchCopy)
{
    show();
    const QString scratch = home.write(u"temp.vxc"_s, "copy");
    click(window->Image13);
    EXPECT_TRUE(othersUnloaded);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(QFile::exists(scratch));
}

TEST_F(MainWindow, CloseStopsAPausedClipFirst)
{
    addClips(u"clips"_s, {u"one"_s});
    showList();
    ASSERT_TRUE(start(1, 1));
    click(window->Image3);
    click(window->Image13);
    EXPECT_TRUE(QTest::qWaitFor([this] { return othersUnloaded; }));
    EXPECT_NE(control.CurrentState(), MediaControl::Running);
}

TEST_F(MainWindow, CloseThatKeepsTheProgramHidesAndEmptiesIt)
{
    option("nc");
    addClips(u"clips"_s, {u"one"_s});
    showList();
    ASSERT_TRUE(start(1, 1));
    control.playTo(4);
    engine->tick();
    click(window->Image13);
    EXPECT_FALSE(othersUnloaded);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->Label1->text(), u"000000,000");
    EXPECT_EQ(window->Label2->text(), u"000000,00");
    EXPECT_EQ(window->Slider1->value(), 0);
    EXPECT_EQ(window->lineCount(), 0);
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(0));
    EXPECT_EQ(control.FileName(), QString());
    window->showMainWindow();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindow, TheWindowManagersCloseIsTheCloseButton)
{
    option("nc");
    show();
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_FALSE(othersUnloaded);
}

TEST_F(MainWindow, TheWindowManagersCloseEndsTheProgram)
{
    show();
    window->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return othersUnloaded; }));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindow, UnloadingStopsItsTimers)
{
    show();
    window->Timer1.start();
    window->enableTimer3();
    window->unloadAll();
    EXPECT_FALSE(window->Timer1.isActive());
    EXPECT_FALSE(window->Timer3.isActive());
}

TEST_F(MainWindow, OnlyAMinimisedWindowIsNotNormal)
{
    show();
    EXPECT_TRUE(window->isWindowNormal());
    click(window->Image12);
    EXPECT_TRUE(window->isMinimized());
    EXPECT_FALSE(window->isWindowNormal());
    window->bringMainWindowToFront();
    EXPECT_TRUE(window->isWindowNormal());
    window->hideMainWindow();
    EXPECT_TRUE(window->isWindowNormal());
}

TEST_F(MainWindow, AKeyShowsThatADesktopHasNotMinimisedIt)
{
    show();
    click(window->Image12);
    ASSERT_FALSE(window->isWindowNormal());
    QTest::keyClick(window->List1, Qt::Key_Down);
    EXPECT_TRUE(window->isWindowNormal());
    click(window->Image12);
    ASSERT_FALSE(window->isWindowNormal());
    QTest::mousePress(window->List1->viewport(), Qt::LeftButton);
    EXPECT_TRUE(window->isWindowNormal());
}

TEST_F(MainWindow, MinimisingHidesTheVideoWindowAtTheNextTick)
{
    show();
    engine->tick();
    ASSERT_TRUE(video.windowShown);
    click(window->Image12);
    engine->tick();
    EXPECT_FALSE(video.windowShown);
    window->bringMainWindowToFront();
    engine->tick();
    EXPECT_TRUE(video.windowShown);
}

TEST_F(MainWindow, ActivationUnloadsTheSplashAndRefreshesTheState)
{
    show();
    EXPECT_GE(splashUnloads, 1);
    addClips(u"clips"_s, {u"one"_s});
    window->RebuildTree();
    engine->ListClick(1, 1);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return control.CurrentState() == MediaControl::Running; }));
    video.mirror().VideoState = MediaControl::Running;
    module.playback.CachedState = MediaControl::Stopped;
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window.get(), &activate);
    EXPECT_EQ(module.playback.CachedState, MediaControl::Running);
}

TEST_F(MainWindow, Timer3ShowsTheVideoWindowOnceAndSwitchesItselfOff)
{
    show();
    const int before = video.showCalls;
    window->enableTimer3();
    EXPECT_TRUE(QTest::qWaitFor([&] { return video.showCalls > before; }));
    EXPECT_TRUE(video.windowShown);
    EXPECT_FALSE(window->Timer3.isActive());
}

TEST_F(MainWindow, IsMovedByDraggingItsSurface)
{
    show();
    const QPoint before = window->pos();
    const QPoint title(200, 20);
    QTest::mousePress(window.get(), Qt::LeftButton, {}, title);
    QTest::mouseMove(window.get(), title + QPoint(40, 30));
    QTest::mouseRelease(window.get(), Qt::LeftButton, {}, title + QPoint(40, 30));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->pos() == before + QPoint(40, 30); }));
}

TEST_F(MainWindow, IsResizedAtItsEdgesAndTheListTakesTheSpace)
{
    show();
    const QSize before = window->size();
    const int list = window->List1->height();
    const QPoint corner(window->width() - 2, window->height() - 2);
    QTest::mousePress(window.get(), Qt::LeftButton, {}, corner);
    QTest::mouseMove(window.get(), corner + QPoint(50, 60));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->size() == before + QSize(50, 60); }));
    QTest::mouseRelease(window.get(), Qt::LeftButton, {}, corner);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->List1->height() == list + 60; }));
}

TEST_F(MainWindow, CannotBeMadeSmallerThanItsControlsNeed)
{
    show();
    window->resize(10, 10);
    EXPECT_GE(window->width(), window->minimumSizeHint().width());
    EXPECT_LE(window->minimumSizeHint().width(), 460);
    EXPECT_LE(window->minimumSizeHint().height(), 380);
    EXPECT_GE(window->List1->viewport()->height(), 4 * skin::kRowHeight);
}

TEST_F(MainWindow, CornersAreSquareWhereNothingShowsThroughThem)
{
    show();
    ASSERT_FALSE(areWindowsBlended());
    const QImage image = window->grab().toImage();
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(image.width() - 1, 0), QPoint(0, image.height() - 1)}) {
        EXPECT_EQ(image.pixelColor(corner).alpha(), 255);
    }
}

TEST_F(MainWindow, TabGoesThroughTheControlsInTheirOrder)
{
    addClips(u"clips"_s, {u"one"_s}); // Play is no stop on the way while it would do nothing
    show();
    const QList<QWidget*> order = {window->Image8,         window->Image14,    window->Image9,
                                   window->Image10,        window->Image11,    window->Text1,
                                   window->Image2,         window->Text2,      window->List1,
                                   window->Slider1,        window->Image4,     window->Image5,
                                   window->PracticeButton, window->EditButton, window->Slider2,
                                   window->Slider3,        window->Image12,    window->Image13};
    window->Image8->setFocus();
    for (qsizetype i = 1; i < order.size(); ++i) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window->focusWidget(), order.at(i)) << qPrintable(order.at(i)->objectName());
    }
}

TEST_F(MainWindow, MenusDropDownByKeyBelowTheirButtons)
{
    show();
    window->Image9->setFocus();
    QTest::keyClick(window->Image9, Qt::Key_Return);
    EXPECT_TRUE(window->create->isVisible());
    EXPECT_GE(window->create->y(), window->Image9->mapToGlobal(QPoint(0, 0)).y());
    window->create->close();
    click(window->Image11);
    EXPECT_TRUE(window->help->isVisible());
    window->help->close();
}

TEST_F(MainWindow, AnErrorThatAHandlerDoesNotTrapReachesTheReport)
{
    show();
    window->setListIndex(-1);
    // Outside 16 bits, as no slider of the window can be.
    Q_EMIT window->Slider2->userChanged(1e9);
    EXPECT_EQ(reported, ErrorNumber::Overflow);
}

} // namespace orvanta::test
