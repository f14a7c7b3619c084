// The program under Wayland, where no program places its windows or stacks them.

#include "tests/e2e/support/steered.h"
#include "tests/e2e/support/tray.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Wayland : public Steered
{
protected:
    explicit Wayland(const QString& backend)
        : Steered({.windowManager = false, .compositor = backend})
    {}

    QString lesson()
    {
        return writeClips(file(u"lesson.vxl"_s), {{media(u"video200.mp4"_s), u"Lesson"_s}});
    }

    void expectLessonPlays()
    {
        ASSERT_TRUE(plays(u"start 1 1 Lesson"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
    }

    /// Nothing that the program says is a complaint of the display system's.
    void expectNoComplaint()
    {
        EXPECT_EQ(program.linesMatching(u"(?i)wayland.*(error|fatal|invalid)|protocol error"_s),
                  QStringList());
    }
};

class WaylandWithoutScreen : public Wayland
{
protected:
    WaylandWithoutScreen()
        : Wayland(u"headless"_s)
    {}
};

TEST_F(WaylandWithoutScreen, TheWindowComesAndTheClipPlaysAndIsSteeredAndClosed)
{
    ASSERT_TRUE(program.startAndShow({lesson()}));
    expectLessonPlays();
    EXPECT_TRUE(comesBetween(1, 60));
    controls.seekTo(100);
    EXPECT_TRUE(comesBetween(100, 130));
    controls.setFullScreen(true);
    EXPECT_TRUE(waitFor([this] { return controls.isFullScreen(); }));
    EXPECT_TRUE(comesBetween(101, 160));
    controls.setFullScreen(false);
    controls.callRoot(u"Raise"_s);
    controls.call(u"Pause"_s);
    EXPECT_TRUE(becomes(u"Paused"_s));
    EXPECT_EQ(launchAgain(desktop, home, {media(u"sound2.wav"_s)}), 0);
    EXPECT_TRUE(plays(u"start 1 1 sound2"_s));
    controls.callRoot(u"Quit"_s);
    EXPECT_EQ(program.statusAtEnd(), 0);
    expectNoComplaint();
}

TEST_F(WaylandWithoutScreen, TheTrayIconComesWithATrayThatIsThereOnlyLater)
{
    home.setOption(u"si"_s, true);
    program.start({u"/auto"_s});
    ASSERT_TRUE(program.peek(u"^orvanta.startup: ready"_s));
    Tray tray(desktop);
    ASSERT_TRUE(tray.isReady());
    EXPECT_TRUE(tray.waitForIcons(1));
    EXPECT_TRUE(tray.choose(u"_Exit"_s));
    EXPECT_EQ(program.statusAtEnd(), 0);
    EXPECT_TRUE(tray.waitForIcons(0));
}

class WaylandWithKeyboard : public Wayland
{
protected:
    WaylandWithKeyboard()
        : Wayland(u"x11"_s)
    {}
};

TEST_F(WaylandWithKeyboard, KeysSteerAndAlwaysOnTopSaysWhatIsMissing)
{
    ASSERT_TRUE(program.startAndShow());
    // The compositor gives the keyboard to the new window in its own time.
    const QString missing = u"^orvanta.desktop: this display system keeps no window on top"_s;
    EXPECT_TRUE(waitFor([&] {
        press(Key::T);
        return !program.linesMatching(missing).isEmpty();
    }));
    EXPECT_EQ(launchAgain(desktop, home, {lesson()}), 0);
    expectLessonPlays();
    // Whichever of the two windows has the keyboard now, these keys do the same.
    press(Key::P);
    EXPECT_TRUE(becomes(u"Paused"_s));
    press(Key::R);
    EXPECT_TRUE(becomes(u"Playing"_s));
    press(Key::M);
    EXPECT_TRUE(comesBetween(60, 100));
    press(Key::F);
    EXPECT_TRUE(waitFor([this] { return controls.isFullScreen(); }));
    press(Key::N);
    EXPECT_TRUE(waitFor([this] { return !controls.isFullScreen(); }));
    EXPECT_TRUE(becomes(u"Playing"_s));
    desktop.press(u"ctrl+q"_s);
    EXPECT_EQ(program.statusAtEnd(), 0);
    expectNoComplaint();
}

} // namespace orvanta::e2e
