// The picture on the whole screen: every way there and back, the pointer, the next clip.

#include "tests/e2e/support/steered.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class FullScreen : public Steered
{
protected:
    QPoint screenCentre() { return QRect(QPoint(), desktop.screenSize()).center(); }

    [[nodiscard]] bool pointerGoes()
    {
        return waitFor([this] { return !desktop.isPointerVisible(); });
    }
    [[nodiscard]] bool pointerComesBack()
    {
        return waitFor([this] { return desktop.isPointerVisible(); });
    }

    /// Fills the screen by the program's key and puts the pointer on the picture.
    void enter()
    {
        desktop.press(u"F11"_s);
        ASSERT_TRUE(videoFillsScreen());
        desktop.moveMouse(screenCentre());
        ASSERT_TRUE(pointerGoes());
    }

    /// A frame of the window manager moves a window out of the corner again.
    void expectLeft()
    {
        EXPECT_TRUE(videoIsInWindow());
        desktop.moveMouse(videoPlace().center());
        EXPECT_TRUE(pointerComesBack());
        EXPECT_TRUE(becomes(u"Playing"_s));
    }
};

TEST_F(FullScreen, LettersFunctionKeyDoubleClickAndEscapeSwitchItAndThePointerWithIt)
{
    playLesson();
    const QSize inWindow = videoPlace().size();
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    desktop.moveMouse(videoPlace().center());
    ASSERT_TRUE(pointerComesBack());

    desktop.press(u"f"_s);
    ASSERT_TRUE(videoFillsScreen());
    desktop.moveMouse(screenCentre());
    EXPECT_TRUE(pointerGoes());
    desktop.press(u"n"_s);
    expectLeft();

    ASSERT_TRUE(desktop.activate(kVideoWindow));
    enter();
    desktop.press(u"F11"_s);
    expectLeft();

    ASSERT_TRUE(desktop.activate(kVideoWindow));
    enter();
    desktop.press(u"Escape"_s);
    expectLeft();

    desktop.doubleClick(videoPlace().center());
    EXPECT_TRUE(videoFillsScreen());
    EXPECT_TRUE(pointerGoes());
    EXPECT_TRUE(controls.isFullScreen());
    desktop.doubleClick(screenCentre());
    expectLeft();
    EXPECT_FALSE(controls.isFullScreen());
    EXPECT_TRUE(waitFor([&] { return videoPlace().size() == inWindow; }));
}

TEST_F(FullScreen, EscapeFunctionKeyAndDoubleClickLeaveAPausedPictureToo)
{
    playLesson();
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    for (const QString& way : {u"Escape"_s, u"F11"_s, u"double click"_s}) {
        enter();
        desktop.press(u"p"_s);
        ASSERT_TRUE(becomes(u"Paused"_s));
        desktop.press(u"n"_s); // serves running clips only
        desktop.press(u"k"_s); // is carried out after it
        ASSERT_TRUE(waitFor([this] { return !home.get(u"pos"_s, u"Lesson"_s).isEmpty(); }));
        EXPECT_TRUE(videoFillsScreen());
        if (way == u"double click") {
            desktop.doubleClick(screenCentre());
        } else {
            desktop.press(way);
        }
        EXPECT_TRUE(videoIsInWindow()) << way.toStdString();
        EXPECT_EQ(controls.status(), u"Paused"_s);
        home.remove(u"Lesson"_s);
        ASSERT_TRUE(desktop.activate(kVideoWindow));
        desktop.press(u"r"_s);
        ASSERT_TRUE(becomes(u"Playing"_s));
    }
}

TEST_F(FullScreen, GoesOnWithTheNextClipThatHasAPictureAndShowsThePointerWithoutOne)
{
    const QString packet =
        writeClips(file(u"packet.vxl"_s), {{media(u"video2.mp4"_s), u"First"_s},
                                           {media(u"sound2.wav"_s), u"Sound"_s},
                                           {media(u"video200.mp4"_s), u"Third"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(plays(u"start 1 1 First"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"video2"_s) == 1; }));
    ASSERT_TRUE(desktop.activate(u"video2"_s));
    desktop.press(u"F11"_s);
    desktop.moveMouse(screenCentre());
    EXPECT_TRUE(plays(u"start 1 2 Sound"_s));
    EXPECT_TRUE(pointerComesBack());
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"video2"_s) == 0; }));
    EXPECT_TRUE(plays(u"start 1 3 Third"_s));
    EXPECT_TRUE(videoFillsScreen());
    EXPECT_TRUE(pointerGoes());
    EXPECT_TRUE(controls.isFullScreen());
    // Its keys work again, too.
    EXPECT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == kVideoWindow; }));
    desktop.press(u"space"_s);
    EXPECT_TRUE(becomes(u"Paused"_s));
    desktop.press(u"Escape"_s);
    EXPECT_TRUE(videoIsInWindow());
}

TEST_F(FullScreen, TheDesktopsMediaControlsSwitchIt)
{
    playLesson();
    controls.setFullScreen(true);
    EXPECT_TRUE(videoFillsScreen());
    EXPECT_TRUE(isPlaying());
    controls.setFullScreen(false);
    EXPECT_TRUE(videoIsInWindow());
    EXPECT_TRUE(isPlaying());
}

class VideoWindow : public Steered
{};

TEST_F(VideoWindow, ClosedByTheWindowManagerUnloadsTheClipAndNeverEndsTheProgram)
{
    playLesson();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(desktop.closeWindow(kVideoWindow));
        EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kVideoWindow) == 0; }));
        EXPECT_TRUE(becomes(u"Stopped"_s));
        EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
        ASSERT_TRUE(program.isRunning());
        EXPECT_EQ(desktop.visibleWindows(kMainWindow), 1);
        // It does not count as hidden: the next clip shows it again.
        window().doubleClickRow(2);
        EXPECT_TRUE(plays(u"start 1 1 Lesson"_s));
        EXPECT_TRUE(videoIsInWindow());
        EXPECT_TRUE(becomes(u"Playing"_s));
    }
}

TEST_F(VideoWindow, ClosedWhileItFillsTheScreenLeavesTheMainWindowInSight)
{
    playLesson();
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    desktop.press(u"F11"_s);
    ASSERT_TRUE(videoFillsScreen());
    ASSERT_TRUE(desktop.closeWindow(kVideoWindow));
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kVideoWindow) == 0; }));
    EXPECT_TRUE(waitFor([this] { return desktop.isPointerVisible(); }));
    EXPECT_TRUE(becomes(u"Stopped"_s));
    EXPECT_TRUE(program.isRunning());
}

TEST_F(VideoWindow, ASizeThatTheUserGaveIsKeptFromClipToClip)
{
    playLesson();
    ASSERT_TRUE(desktop.resizeWindow(kVideoWindow, {500, 300}));
    ASSERT_TRUE(waitFor([this] { return videoPlace().size() == QSize(500, 300); }));
    window().doubleClickRow(2);
    EXPECT_TRUE(plays(u"start 1 1 Lesson"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    EXPECT_TRUE(waitFor([this] { return videoPlace().size() == QSize(500, 300); }));
}

} // namespace orvanta::e2e
