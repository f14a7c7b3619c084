// The video window's full-screen mode.
#include "tests/playback/video_window_fixture.h"

#include <QSignalSpy>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

class FullScreenTest : public VideoWindowTest
{
protected:
    [[nodiscard]] bool fillsScreen() const
    {
        return form.windowState().testFlag(Qt::WindowFullScreen);
    }
    [[nodiscard]] bool isCursorHidden() const { return form.cursor().shape() == Qt::BlankCursor; }

    void openVideo() { open(u"/a.avi"_s, {320, 240}); }
    void press(Qt::Key key) { QTest::keyClick(&form, key); }
    void doubleClick() { QTest::mouseDClick(form.ActiveMovie1, Qt::LeftButton); }

    /// Enters full screen and leaves it by this way with the player in this state.
    void leaveBy(MediaControl::State state, const std::function<void()>& way)
    {
        control.Run();
        press(Qt::Key_F);
        EXPECT_TRUE(fillsScreen());
        control.forceState(state);
        way();
        EXPECT_FALSE(fillsScreen() || isCursorHidden()) << state;
        EXPECT_EQ(control.CurrentState(), state);
    }
};

TEST_F(FullScreenTest, FFillsTheScreenWithTheCursorHiddenAndTheClipGoesOn)
{
    openVideo();
    control.calls.clear();
    press(Qt::Key_F);
    EXPECT_TRUE(form.isFullScreen());
    EXPECT_TRUE(fillsScreen());
    EXPECT_TRUE(isCursorHidden());
    EXPECT_EQ(control.calls, (QStringList{u"Pause"_s, u"Run"_s}));
}

TEST_F(FullScreenTest, NGivesTheWindowAndTheCursorBack)
{
    openVideo();
    press(Qt::Key_F);
    control.calls.clear();
    press(Qt::Key_N);
    EXPECT_FALSE(form.isFullScreen());
    EXPECT_FALSE(fillsScreen());
    EXPECT_FALSE(isCursorHidden());
    EXPECT_EQ(control.calls, (QStringList{u"Pause"_s, u"Run"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.size() == QSize(320, 240); }));
}

TEST_F(FullScreenTest, FAndNDoNothingWhileTheClipIsPaused)
{
    openVideo();
    control.Pause();
    press(Qt::Key_F);
    EXPECT_FALSE(form.isFullScreen());
    control.Run();
    press(Qt::Key_F);
    control.Pause();
    press(Qt::Key_N);
    EXPECT_TRUE(form.isFullScreen());
}

TEST_F(FullScreenTest, EscapeF11AndDoubleClickLeaveItInAnyState)
{
    openVideo();
    for (const auto state : {MediaControl::Running, MediaControl::Paused}) {
        leaveBy(state, [this] { press(Qt::Key_Escape); });
        leaveBy(state, [this] { press(Qt::Key_F11); });
        leaveBy(state, [this] { doubleClick(); });
    }
}

TEST_F(FullScreenTest, F11AndDoubleClickEnterItWithAPausedClipToo)
{
    openVideo();
    control.Pause();
    press(Qt::Key_F11);
    EXPECT_TRUE(fillsScreen());
    press(Qt::Key_F11);
    doubleClick();
    EXPECT_TRUE(fillsScreen());
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
}

TEST_F(FullScreenTest, EscapeOutsideFullScreenDoesNothing)
{
    openVideo();
    control.calls.clear();
    press(Qt::Key_Escape);
    EXPECT_FALSE(form.isFullScreen());
    EXPECT_TRUE(control.calls.isEmpty());
}

TEST_F(FullScreenTest, WithoutAClipThereIsNothingToFillTheScreen)
{
    form.keys().toggleFullScreen();
    EXPECT_FALSE(form.isFullScreen());
}

TEST_F(FullScreenTest, ItStaysFromClipToClipWithAPicture)
{
    openVideo();
    press(Qt::Key_F);
    control.reachEnd();
    control.setFileName(QString());
    form.moveOutOfSight();
    open(u"/b.avi"_s, {200, 100});
    EXPECT_TRUE(fillsScreen());
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(isCursorHidden());
    press(Qt::Key_N);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.size() == QSize(200, 100); }));
    EXPECT_FALSE(form.isSizedByUser());
}

TEST_F(FullScreenTest, AClipWithoutAnyPictureShowsTheDesktopAndTheNextOneFillsItAgain)
{
    openVideo();
    press(Qt::Key_F);
    open(u"/b.mp3"_s, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
    EXPECT_TRUE(form.isFullScreen());
    open(u"/c.avi"_s, {320, 240});
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(fillsScreen());
}

TEST_F(FullScreenTest, ASmallStillPictureIsEnlargedToTheScreen)
{
    form.setStillPicture(stillPicture({16, 12}));
    open(u"/a.mp3"_s, {});
    EXPECT_EQ(form.Image1->pixmap(Qt::ReturnByValue).size(), QSize(16, 12));
    press(Qt::Key_F);
    EXPECT_TRUE(fillsScreen());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QSize picture = form.Image1->pixmap(Qt::ReturnByValue).size();
        return picture.width() == form.screen()->size().width() ||
               picture.height() == form.screen()->size().height();
    }));
}

TEST_F(FullScreenTest, TheUsersSizeComesBackAfterwards)
{
    openVideo();
    form.windowHandle()->resize(500, 400);
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.size() == QSize(500, 400); }));
    press(Qt::Key_F);
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.size() == form.screen()->size(); }));
    open(u"/b.avi"_s, {200, 100});
    press(Qt::Key_N);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.size() == QSize(500, 400); }));
}

TEST_F(FullScreenTest, ClosingTheWindowLeavesIt)
{
    openVideo();
    press(Qt::Key_F);
    form.close();
    EXPECT_FALSE(form.isFullScreen());
    open(u"/b.avi"_s, {200, 100});
    EXPECT_FALSE(fillsScreen());
}

TEST_F(FullScreenTest, EveryChangeOfTheModeIsToldOnce)
{
    QSignalSpy changes(&form, &Form13::fullScreenChanged);
    openVideo();
    press(Qt::Key_F);
    press(Qt::Key_F);
    form.setFullScreen(false);
    ASSERT_EQ(changes.size(), 2);
    EXPECT_TRUE(changes[0][0].toBool());
    EXPECT_FALSE(changes[1][0].toBool());
}

} // namespace
