// The icon in the notification area, over a watcher and a menu as a desktop's panel has them.

#include "tests/e2e/support/dragging.h"
#include "tests/e2e/support/steered.h"
#include "tests/e2e/support/tray.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class TrayIcon : public Steered
{
protected:
    void SetUp() override
    {
        Steered::SetUp();
        ASSERT_TRUE(tray.isReady());
        home.setOption(u"si"_s, true);
    }

    /// A packet of three long clips, the first of them playing.
    void playThree()
    {
        const QString clip = media(u"video200.mp4"_s);
        const QString packet = writeClips(file(u"three.vxl"_s),
                                          {{clip, u"One"_s}, {clip, u"Two"_s}, {clip, u"Three"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(plays(u"start 1 1 One"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
        ASSERT_TRUE(tray.waitForIcons(1));
    }

    void expectIconGoesWithTheProgram(int status)
    {
        EXPECT_TRUE(program.waitForEnd());
        EXPECT_EQ(program.exitStatus(), status);
        EXPECT_TRUE(tray.waitForIcons(0));
    }

    Tray tray{desktop};
};

TEST_F(TrayIcon, ItsMenuSteersAndItsLeftButtonShowsTheWindow)
{
    playThree();
    EXPECT_EQ(tray.toolTip(), u"!orvanta! 3.3"_s);
    EXPECT_TRUE(tray.hasPicture());
    const QStringList expected = {u"_Stop"_s,      u"Paus_e"_s,         u"_Play"_s, u"-"_s,
                                  u"_Next clip"_s, u"_Previous clip"_s, u"-"_s,     u"_Exit"_s};
    EXPECT_EQ(tray.captions(), expected);

    EXPECT_TRUE(tray.choose(u"Paus_e"_s));
    EXPECT_TRUE(becomes(u"Paused"_s));
    EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    EXPECT_TRUE(tray.choose(u"_Play"_s));
    EXPECT_TRUE(becomes(u"Playing"_s));
    EXPECT_TRUE(tray.choose(u"_Next clip"_s));
    EXPECT_TRUE(plays(u"start 1 2 Two"_s));
    EXPECT_TRUE(tray.choose(u"_Previous clip"_s));
    EXPECT_TRUE(plays(u"start 1 1 One"_s));
    EXPECT_TRUE(tray.choose(u"_Stop"_s));
    EXPECT_TRUE(becomes(u"Stopped"_s));
    EXPECT_TRUE(waitFor([this] { return !window().isEnabled(u"Pause"_s); }));

    window().press(u"Minimize button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 0; }));
    tray.leftClick();
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));

    EXPECT_TRUE(tray.choose(u"_Exit"_s));
    expectIconGoesWithTheProgram(0);
}

TEST_F(TrayIcon, ItsMenuIsInTheStoredLanguage)
{
    home.set(u"main"_s, u"language"_s, u"2"_s);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(tray.waitForIcons(1));
    const QStringList expected = {u"_Стоп"_s, u"_Пауза"_s,          u"_Воспроизведение"_s,
                                  u"-"_s,     u"_Следующий клип"_s, u"_Предыдущий клип"_s,
                                  u"-"_s,     u"_Закрыть"_s};
    EXPECT_EQ(tray.captions(), expected);
    EXPECT_TRUE(tray.choose(u"_Закрыть"_s));
    expectIconGoesWithTheProgram(0);
}

TEST_F(TrayIcon, BringsAHiddenProgramBackWhichAClickOnCloseDoesNotEnd)
{
    home.setOption(u"nc"_s, true);
    playThree();
    window().press(u"Close button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 0; }));
    EXPECT_TRUE(becomes(u"Stopped"_s));
    EXPECT_TRUE(tray.waitForIcons(1));
    tray.leftClick();
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
    EXPECT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == kMainWindow; }));
    EXPECT_EQ(window().rows(), QStringList());
    // Exit ends it all the same.
    EXPECT_TRUE(tray.choose(u"_Exit"_s));
    expectIconGoesWithTheProgram(0);
}

TEST_F(TrayIcon, GoesWithTheCloseButton)
{
    playThree();
    window().press(u"Close button"_s);
    expectIconGoesWithTheProgram(0);
}

TEST_F(TrayIcon, GoesWithATerminatedProgram)
{
    playThree();
    program.sendSignal(SIGTERM);
    expectIconGoesWithTheProgram(0);
}

TEST_F(TrayIcon, GoesBeforeTheReportOfARunTimeErrorIsConfirmed)
{
    playThree();
    const QString bad = writeBytes(file(u"bad.vxl"_s), "[main]\r\nfiles=many\r\n");
    Dragging dragging(desktop);
    EXPECT_TRUE(dragging.dropFiles({bad}, window().listCentre()));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"Orvanta"_s) == 1; }));
    EXPECT_TRUE(tray.waitForIcons(0));
    ASSERT_TRUE(desktop.activate(u"Orvanta"_s));
    desktop.press(u"Return"_s);
    expectIconGoesWithTheProgram(1);
}

TEST_F(TrayIcon, IsNotThereWhenTheOptionIsOff)
{
    home.setOption(u"si"_s, false);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(waitFor([this] { return controls.isThere(); }));
    EXPECT_EQ(tray.icons(), QStringList());
}

class NoTray : public Steered
{};

TEST_F(NoTray, OnADesktopWithoutOneTheProgramRunsAndPlays)
{
    home.setOption(u"si"_s, true);
    playLesson();
    EXPECT_TRUE(comesBetween(0.5, 60));
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(NoTray, AnIconComesWithATrayThatIsThereOnlyLater)
{
    home.setOption(u"si"_s, true);
    program.start({u"/auto"_s}); // as with the session: hidden
    ASSERT_TRUE(program.peek(u"^orvanta.startup: ready"_s));
    EXPECT_TRUE(program.peek(u"^orvanta.desktop: this desktop has no tray"_s));
    Tray tray(desktop);
    ASSERT_TRUE(tray.isReady());
    EXPECT_TRUE(tray.waitForIcons(1));
    tray.leftClick();
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
}

TEST_F(NoTray, AHiddenProgramIsShownByALaterLaunch)
{
    home.setOption(u"si"_s, true);
    home.setOption(u"nc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    window().press(u"Close button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 0; }));
    ASSERT_TRUE(program.isRunning());
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
}

} // namespace orvanta::e2e
