// The video window: mirror fields, layout after opening, in and out of sight.
#include "tests/playback/video_window_fixture.h"

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

/// Counts how often a window is taken off the screen.
class HideCounter : public QObject
{
public:
    explicit HideCounter(QObject* watched) { watched->installEventFilter(this); }
    int hides = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        hides += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
};

} // namespace

TEST_F(VideoWindowTest, ThePositionEventFillsTheMirror)
{
    open(u"/a.avi"_s, {});
    form.mirror().VideoPositionUpdated = false;
    control.playTo(2.5);
    EXPECT_EQ(form.mirror().VideoPosition, u"2.5"_s);
    EXPECT_TRUE(form.mirror().VideoPositionUpdated);
}

TEST_F(VideoWindowTest, TheStateEventFillsTheMirror)
{
    open(u"/a.avi"_s, {});
    EXPECT_EQ(form.mirror().VideoState, 2);
    control.Pause();
    EXPECT_EQ(form.mirror().VideoState, 1);
    control.Stop();
    EXPECT_EQ(form.mirror().VideoState, 0);
    control.setFileName(QString());
    EXPECT_EQ(form.mirror().VideoState, -1);
}

TEST_F(VideoWindowTest, TheNaturalEndSetsVideoEnded)
{
    open(u"/a.avi"_s, {});
    control.playTo(9.9);
    EXPECT_FALSE(form.mirror().VideoEnded);
    control.reachEnd();
    EXPECT_TRUE(form.mirror().VideoEnded);
}

TEST_F(VideoWindowTest, AClipStoppedByTheUserBeforeItsEndNeverSetsVideoEnded)
{
    control.duration = 10.7;
    open(u"/a.avi"_s, {});
    for (const double place : {0.0, 3.0, 9.9, 10.0, 10.6}) {
        control.playTo(place);
        control.Stop();
        control.Run();
        EXPECT_FALSE(form.mirror().VideoEnded) << place;
    }
}

TEST_F(VideoWindowTest, AJumpFromElsewhereToTheStartIsNoEnd)
{
    control.duration = 10.7;
    open(u"/a.avi"_s, {});
    Q_EMIT control.positionChange(5, 0);
    Q_EMIT control.positionChange(9.99, 0);
    Q_EMIT control.positionChange(10.2, 0.001);
    EXPECT_FALSE(form.mirror().VideoEnded);
    Q_EMIT control.positionChange(10.2, 0);
    EXPECT_TRUE(form.mirror().VideoEnded);
}

TEST_F(VideoWindowTest, EveryOpenedClipIsRun)
{
    const QString still = stillPicture({300, 200});
    for (const QSize& picture : {QSize(), QSize(320, 240)}) {
        for (const QString& file : {QString(), still}) {
            control.calls.clear();
            form.setStillPicture(file);
            open(u"/a.avi"_s, picture);
            EXPECT_EQ(control.calls, (QStringList{u"load /a.avi"_s, u"Run"_s}));
        }
    }
}

TEST_F(VideoWindowTest, AClipWithAPictureOpensInItsSize)
{
    open(u"/m/lesson 1.avi"_s, {320, 240});
    EXPECT_TRUE(form.isVisible());
    EXPECT_NE(form.Left(), kOutOfSight);
    EXPECT_EQ(form.size(), QSize(320, 240));
    EXPECT_EQ(form.Width(), 320 * 15 + 50);
    EXPECT_EQ(form.Height(), 240 * 15 + 200);
    EXPECT_TRUE(form.ActiveMovie1->isVisible());
    EXPECT_EQ(form.ActiveMovie1->size(), QSize(320, 240));
    EXPECT_FALSE(form.Image1->isVisible());
    EXPECT_EQ(form.windowTitle(), u"lesson 1"_s);
}

TEST_F(VideoWindowTest, APictureLargerThanTheScreenIsShrunkToFit)
{
    open(u"/a.avi"_s, screen().size() * 4);
    EXPECT_TRUE(screen().contains(form.frameGeometry()));
    const double shape = static_cast<double>(form.width()) / form.height();
    EXPECT_NEAR(shape, static_cast<double>(screen().width()) / screen().height(), 0.02);
}

TEST_F(VideoWindowTest, ItOpensBesideTheMainWindow)
{
    QWidget mainWindow;
    mainWindow.setGeometry(screen().x() + 20, screen().y() + 40, 300, 200);
    mainWindow.show();
    neighbour = &mainWindow;
    open(u"/a.avi"_s, {200, 150});
    EXPECT_FALSE(mainWindow.frameGeometry().intersects(form.frameGeometry()));
    EXPECT_TRUE(screen().contains(form.frameGeometry()));
}

TEST_F(VideoWindowTest, AnAudioClipWithAStillPictureShowsIt)
{
    form.setStillPicture(stillPicture({400, 300}));
    open(u"/a.mp3"_s, {});
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.Image1->isVisible());
    EXPECT_FALSE(form.ActiveMovie1->isVisible());
    EXPECT_NE(form.Left(), kOutOfSight);
    EXPECT_EQ(form.size(), QSize(400, 300));
    EXPECT_EQ(form.Image1->pixmap(Qt::ReturnByValue).size(), QSize(400, 300));
}

TEST_F(VideoWindowTest, AnAudioClipWithACoverShowsIt)
{
    control.hasCover = true;
    open(u"/a.mp3"_s, {});
    EXPECT_FALSE(form.isVisible());
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.Image1->isVisible());
    EXPECT_FALSE(form.ActiveMovie1->isVisible());
    EXPECT_EQ(form.size(), QSize(300, 200));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoWindowTest, ThePacketsPictureGoesBeforeACover)
{
    control.hasCover = true;
    form.setStillPicture(stillPicture({400, 300}));
    open(u"/a.mp3"_s, {});
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    EXPECT_EQ(form.Image1->pixmap(Qt::ReturnByValue).size(), QSize(400, 300));
}

TEST_F(VideoWindowTest, BetweenTwoClipsWithCoversTheWindowStays)
{
    control.hasCover = true;
    open(u"/a.mp3"_s, {});
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    open(u"/b.mp3"_s, {});
    QCoreApplication::processEvents();
    EXPECT_TRUE(form.isVisible());
    control.completeCover(QImage(310, 210, QImage::Format_RGB32));
    EXPECT_EQ(form.Image1->pixmap(Qt::ReturnByValue).size(), QSize(310, 210));
}

TEST_F(VideoWindowTest, ACoverThatCannotBeReadLeavesTheWindowOutOfSight)
{
    control.hasCover = true;
    open(u"/a.mp3"_s, {});
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    open(u"/b.mp3"_s, {});
    control.completeCover(QImage());
    EXPECT_FALSE(form.isVisible());
}

TEST_F(VideoWindowTest, UnloadingWhileACoverIsReadHidesTheWindow)
{
    control.hasCover = true;
    open(u"/a.mp3"_s, {});
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    open(u"/b.mp3"_s, {});
    control.setFileName(QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.isVisible(); }));
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(VideoWindowTest, ACoverFillsTheScreenAndMakesRoomForTheText)
{
    control.hasCover = true;
    storedLevel = TextLevel::Text;
    open(u"/a.mp3"_s, {});
    EXPECT_TRUE(form.isVisible()); // the text alone
    control.completeCover(QImage(300, 200, QImage::Format_RGB32));
    EXPECT_TRUE(form.Image1->isVisible());
    EXPECT_LT(form.Image1->height(), form.height());
    form.setFullScreen(true);
    EXPECT_TRUE(form.windowState().testFlag(Qt::WindowFullScreen));
    EXPECT_TRUE(form.Image1->isVisible());
}

TEST_F(VideoWindowTest, TheFrameOfAStillPictureIsAtLeast3100By450Twips)
{
    form.setStillPicture(stillPicture({8, 8}));
    open(u"/a.mp3"_s, {});
    EXPECT_EQ(form.Width(), 3100);
    EXPECT_EQ(form.Height(), 450);
    EXPECT_EQ(form.size(), QSize(207, 30));
    EXPECT_EQ(form.Image1->pixmap(Qt::ReturnByValue).size(), QSize(8, 8));
}

TEST_F(VideoWindowTest, StillPicturesOfEveryKindInUseAreShown)
{
    for (const auto* format : {"bmp", "jpg", "ico", "png"}) {
        form.setStillPicture(stillPicture({220, 120}, format));
        open(u"/a.mp3"_s, {});
        EXPECT_TRUE(form.Image1->isVisible()) << format;
    }
}

TEST_F(VideoWindowTest, AnAudioClipWithoutAReadableStillPictureStaysOutOfSight)
{
    const QString text = folder.filePath(u"a.wmf"_s);
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    for (const QString& name : {QString(), text, u"/missing.png"_s}) {
        form.setStillPicture(name);
        open(u"/a.mp3"_s, {});
        QCoreApplication::processEvents();
        EXPECT_EQ(form.Left(), -100000) << qPrintable(name);
        EXPECT_FALSE(form.isVisible()) << qPrintable(name);
        EXPECT_EQ(control.CurrentState(), MediaControl::Running) << qPrintable(name);
    }
}

TEST_F(VideoWindowTest, TheStillPictureGoesWhenAClipHasAPictureOfItsOwn)
{
    form.setStillPicture(stillPicture({400, 300}));
    open(u"/a.mp3"_s, {});
    open(u"/b.avi"_s, {320, 240});
    EXPECT_FALSE(form.Image1->isVisible());
    EXPECT_TRUE(form.ActiveMovie1->isVisible());
    EXPECT_EQ(form.size(), QSize(320, 240));
}

TEST_F(VideoWindowTest, BetweenTwoClipsWithPicturesItIsNotHidden)
{
    open(u"/a.avi"_s, {320, 240});
    HideCounter counter(&form);
    // As the engine goes on: end, unload, out of sight, next clip, all in one turn.
    control.reachEnd();
    control.Stop();
    control.setFileName(QString());
    form.moveOutOfSight();
    EXPECT_EQ(form.Left(), -100000);
    open(u"/b.avi"_s, {200, 100});
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.hides, 0);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.size(), QSize(200, 100));
}

TEST_F(VideoWindowTest, AClipWithoutAPictureHidesItWhenItIsOpen)
{
    open(u"/a.avi"_s, {320, 240});
    open(u"/b.mp3"_s, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
}

TEST_F(VideoWindowTest, AClipThatCannotBeOpenedHidesIt)
{
    open(u"/a.avi"_s, {320, 240});
    control.refusedFiles = {u"/b.avi"_s};
    form.prepareForMedia();
    control.setFileName(u"/b.avi"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
    EXPECT_EQ(form.Left(), -100000);
}

TEST_F(VideoWindowTest, EmptyingTheFileNamePutsItOutOfSight)
{
    open(u"/a.avi"_s, {320, 240});
    control.setFileName(QString());
    EXPECT_EQ(form.Left(), -100000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
}

TEST_F(VideoWindowTest, TheProgramHidesAndShowsItWhereverItStands)
{
    open(u"/a.avi"_s, {320, 240});
    const int left = form.Left();
    form.showWindow(false);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Left(), left);
    form.showWindow(true);
    EXPECT_TRUE(form.isVisible());
    form.showWindow(false);
    open(u"/b.avi"_s, {320, 240});
    EXPECT_FALSE(form.isVisible());
    form.moveOutOfSight();
    form.showWindow(true);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(VideoWindowTest, TheUsersSizeAndPlaceAreKept)
{
    open(u"/a.avi"_s, {320, 240});
    EXPECT_FALSE(form.isSizedByUser());
    form.windowHandle()->resize(500, 400); // as the window manager reports it
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.size() == QSize(500, 400); }));
    EXPECT_TRUE(form.isSizedByUser());
    const QPoint place = form.pos();
    open(u"/b.avi"_s, {200, 100});
    control.setFileName(QString());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
    open(u"/c.avi"_s, {100, 100});
    EXPECT_EQ(form.size(), QSize(500, 400));
    EXPECT_EQ(form.pos(), place);
    EXPECT_EQ(form.ActiveMovie1->size(), QSize(500, 400));
}

TEST_F(VideoWindowTest, ALargeClipThatPushedItLeavesItsPlaceToTheNextSmallOne)
{
    open(u"/a.avi"_s, {200, 100});
    const QPoint place(500, 300);
    form.move(place);
    QCoreApplication::processEvents();
    open(u"/large.avi"_s, {700, 700});
    EXPECT_NE(form.pos(), place);
    open(u"/larger.avi"_s, {1700, 700});
    open(u"/b.avi"_s, {200, 100});
    EXPECT_EQ(form.pos(), place);
    form.move(40, 50);
    open(u"/c.avi"_s, {200, 120});
    EXPECT_EQ(form.pos(), QPoint(40, 50));
}

TEST_F(VideoWindowTest, ClosingItUnloadsTheClipAndIsNoHidingByTheProgram)
{
    open(u"/a.avi"_s, {320, 240});
    form.close();
    EXPECT_EQ(control.FileName(), QString());
    EXPECT_EQ(form.Left(), -100000);
    EXPECT_FALSE(form.isVisible());
    open(u"/b.avi"_s, {320, 240});
    EXPECT_TRUE(form.isVisible());
}

TEST_F(VideoWindowTest, ItAppearsWithoutTakingTheFocus)
{
    QWidget mainWindow;
    mainWindow.show();
    mainWindow.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&mainWindow));
    open(u"/a.avi"_s, {320, 240});
    QCoreApplication::processEvents();
    EXPECT_TRUE(form.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(form.hasFocus());
}

TEST_F(VideoWindowTest, ControlsBearTheirNames)
{
    EXPECT_EQ(form.objectName(), u"Form13"_s);
    EXPECT_EQ(form.ActiveMovie1->objectName(), u"ActiveMovie1"_s);
    EXPECT_EQ(form.Image1->objectName(), u"Image1"_s);
    EXPECT_EQ(form.Timer1.objectName(), u"Timer1"_s);
    EXPECT_EQ(form.Timer1.interval(), 30000);
}
