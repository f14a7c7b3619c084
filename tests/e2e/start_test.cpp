// Starting and ending the program.

#include "tests/e2e/support/end_to_end.h"
#include "tests/support/probe.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Start : public EndToEnd
{};

class FirstStart : public EndToEnd
{
protected:
    FirstStart()
        : EndToEnd({}, Home::Empty)
    {}

    [[nodiscard]] QString language() const { return home.get(u"main"_s, u"language"_s); }
    /// A place that is read before the window manager has put the dialog somewhere is another one.
    bool isInPlace() { return desktop.activate(u"Select language"_s); }
    bool isShown() { return program.next(u"^orvanta.startup: main window shown"_s).has_value(); }

    std::optional<Accessible> control(const QString& role, const QString& name)
    {
        AccessibilityBus bus(desktop);
        return bus.control(program.pid(), role, name);
    }
};

TEST_F(FirstStart, NextWritesEnglishWhichIsChosenAtFirst)
{
    program.start();
    ASSERT_TRUE(isInPlace());
    ASSERT_TRUE(control(u"push button"_s, u"Next..."_s));
    EXPECT_EQ(language(), u""_s);
    window().press(u"Next..."_s);
    ASSERT_TRUE(isShown());
    EXPECT_EQ(language(), u"1"_s);
    EXPECT_TRUE(control(u"push button"_s, u"Close button"_s));
}

TEST_F(FirstStart, TheRussianChoiceChangesTheDialogAtOnceAndWritesTwo)
{
    program.start();
    ASSERT_TRUE(isInPlace());
    const auto russian = control(u"radio button"_s, u"Русский"_s);
    ASSERT_TRUE(russian) << window().outline().toStdString();
    desktop.click(russian->place().center());
    ASSERT_TRUE(control(u"push button"_s, u"Далее..."_s));
    EXPECT_TRUE(waitFor([&] { return desktop.visibleWindows(u"Выберите язык"_s) == 1; }));
    window().press(u"Далее..."_s);
    ASSERT_TRUE(isShown());
    EXPECT_EQ(language(), u"2"_s);
    EXPECT_TRUE(control(u"push button"_s, u"Кнопка закрыть"_s));
}

TEST_F(FirstStart, EnglishChosenAgainBringsTheEnglishTextsBack)
{
    program.start();
    ASSERT_TRUE(isInPlace());
    const auto russian = control(u"radio button"_s, u"Русский"_s);
    const auto english = control(u"radio button"_s, u"English"_s);
    ASSERT_TRUE(russian && english);
    desktop.click(russian->place().center());
    ASSERT_TRUE(control(u"push button"_s, u"Далее..."_s));
    desktop.click(english->place().center());
    ASSERT_TRUE(control(u"push button"_s, u"Next..."_s));
    EXPECT_TRUE(waitFor([&] { return desktop.visibleWindows(u"Select language"_s) == 1; }));
}

TEST_F(FirstStart, ADialogClosedOtherwiseWritesNothingAndTheMainWindowIsRussian)
{
    program.start();
    ASSERT_TRUE(isInPlace());
    ASSERT_TRUE(control(u"push button"_s, u"Next..."_s));
    ASSERT_TRUE(waitFor([&] { return desktop.activeWindowTitle() == u"Select language"; }));
    desktop.press(u"Escape"_s);
    ASSERT_TRUE(isShown());
    EXPECT_EQ(language(), u""_s);
    EXPECT_TRUE(control(u"push button"_s, u"Кнопка закрыть"_s));
}

TEST_F(Start, AFileOnTheCommandLineOpensWithinTwoTicksOfTheWindowBeingShown)
{
    constexpr double kTwoTicks = 0.6;
    program.start({media(u"video2.mp4"_s)});
    const auto shown = program.peek(u"^orvanta.startup: main window shown"_s);
    ASSERT_TRUE(shown);
    const auto loaded = program.peek(u"^orvanta.playlist: loaded 1 packets, 1 entries"_s);
    ASSERT_TRUE(loaded);
    EXPECT_LE(loaded->seconds - shown->seconds, kTwoTicks);
    EXPECT_TRUE(plays(u"start 1 1 video2"_s));
    EXPECT_EQ(home.get(u"ftl"_s, u"num"_s), u"0"_s);
    EXPECT_EQ(home.get(u"ftl"_s, u"wr"_s), u"0"_s);
}

TEST_F(Start, TheAutoSwitchInAnyCaseKeepsTheWindowHiddenUntilALaterLaunch)
{
    program.start({u"/AUTO"_s});
    ASSERT_TRUE(program.next(u"^orvanta.startup: ready"_s));
    // The splash has the same title.
    EXPECT_TRUE(waitFor([&] { return desktop.visibleWindows(u"!Orvanta!"_s) == 0; }));
    EXPECT_EQ(program.linesMatching(u"main window shown"_s), QStringList());
    ASSERT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(program.next(u"^orvanta.startup: main window shown"_s));
    EXPECT_TRUE(waitFor([&] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
}

TEST_F(Start, TheAutoSwitchWithABlankBehindItIsACommandLineAndTheWindowIsShown)
{
    program.start({u"/auto "_s});
    EXPECT_TRUE(program.next(u"^orvanta.startup: main window shown"_s)) << program.said();
    EXPECT_TRUE(desktop.activate(u"!Orvanta!"_s));
    EXPECT_TRUE(waitFor([&] { return home.get(u"ftl"_s, u"num"_s) == u"0"; }));
}

TEST_F(Start, LogLinesStandOnStandardErrorAsTheyAre)
{
    program.setVariable(u"QT_MESSAGE_PATTERN"_s, u""_s);
    program.start();
    EXPECT_TRUE(program.next(u"^orvanta.startup: main window shown$"_s));
}

TEST_F(Start, TheLogIsSilentUnlessItIsTurnedOn)
{
    program.setVariable(u"QT_LOGGING_RULES"_s, u""_s);
    program.start({media(u"short.wav"_s)});
    ASSERT_TRUE(waitFor([&] { return window().rows().size() == 3; }));
    program.sendSignal(SIGTERM);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.linesMatching(u"orvanta"_s), QStringList());
}

TEST_F(Start, VersionAndHelpAnswerOnStandardOutput)
{
    program.start({u"--version"_s});
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_TRUE(program.standardOutput().startsWith("Orvanta 3.3\nPictures: drawn by "));
    EXPECT_EQ(program.exitStatus(), 0);
    program.start({u"--help"_s});
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_TRUE(program.standardOutput().contains("orvanta"));
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST_F(Start, AnEndSignalEndsAPlayingProgramCleanly)
{
    program.start({media(u"video2.mp4"_s)});
    ASSERT_TRUE(plays(u"start 1 1"_s));
    program.sendSignal(SIGTERM);
    ASSERT_EQ(program.statusAtEnd(), 0);
    EXPECT_EQ(home.get(u"ftl"_s, u"wr"_s), u"0"_s);
}

TEST_F(Start, AnEndSignalEndsAProgramThatOnlyTheLastWindowCloseWouldHide)
{
    home.setOption(u"nc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    program.sendSignal(SIGTERM);
    ASSERT_EQ(program.statusAtEnd(), 0);
}

TEST_F(Start, WithoutAPlayerLibraryTheProgramEndsWithARunTimeErrorReport)
{
    QProcessEnvironment variables;
    preloadUnusablePlayer(variables, u"none"_s);
    for (const QString& name : variables.keys()) {
        program.setVariable(name, variables.value(name));
    }
    program.start({media(u"short.wav"_s)});
    ASSERT_TRUE(program.next(u"^Run-time error '53': File not found$"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"Orvanta"_s) == 1; }));
    EXPECT_EQ(desktop.visibleWindows(u"!Orvanta!"_s), 0) << "the splash stands in the way";
    window().press(u"OK"_s);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_EQ(program.linesMatching(u"main window shown"_s), QStringList());
}

TEST_F(Start, SettingsThatCannotBeMadeAreReportedAtOnce)
{
    program.setVariable(u"ORVANTA_HOME"_s, u"/proc/nowhere"_s);
    program.start({media(u"short.wav"_s)});
    ASSERT_TRUE(program.next(u"^Run-time error '76': Path not found$"_s)) << program.said();
    window().press(u"OK"_s);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_EQ(program.linesMatching(u"waiting"_s), QStringList());
}

TEST_F(Start, WithoutANumberOfTypesTheProgramEndsWithARunTimeErrorReport)
{
    home.remove(u"num"_s);
    home.set(u"ftl"_s, u"num"_s, u"0"_s);
    home.set(u"add-ins"_s, u"num"_s, u"0"_s);
    program.start();
    ASSERT_TRUE(program.next(u"^Run-time error '13': Type mismatch$"_s));
    window().press(u"OK"_s);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitStatus(), 1);
}

} // namespace orvanta::e2e
