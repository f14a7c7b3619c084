// Programs that the player starts: what happens when one is missing, and to those started before.

#include "core/ini.h"
#include "tests/e2e/support/end_to_end.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Companions : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        home.setOption(u"as"_s, true);
    }

    void TearDown() override
    {
        // A companion leads a group of its own.
        if (const pid_t companion = companionProcess(); companion > 0) {
            ::kill(-companion, SIGTERM);
        }
        EndToEnd::TearDown();
    }

    /// A companion that tells its process and then stays for a minute.
    void putLastingCompanion(const QString& name) const
    {
        QFile file(home.file(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\necho $$ >\"$ORVANTA_HOME/pid.part\"\n"
                   "mv \"$ORVANTA_HOME/pid.part\" \"$ORVANTA_HOME/pid\"\nexec sleep 60\n");
        file.close();
        file.setPermissions(file.permissions() | QFile::ExeOwner);
    }

    [[nodiscard]] pid_t companionProcess() const
    {
        QFile file(home.file(u"pid"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
    }

    /// Instead of the desktop's: keeps the address that it is given.
    void putOpener()
    {
        ASSERT_TRUE(QDir(home.folder()).mkpath(u"opener"_s));
        QFile file(home.file(u"opener/xdg-open"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nprintf %s \"$1\" >\"$ORVANTA_HOME/opened.part\"\n"
                   "mv \"$ORVANTA_HOME/opened.part\" \"$ORVANTA_HOME/opened\"\n");
        file.close();
        file.setPermissions(file.permissions() | QFile::ExeOwner);
        const QString path = desktop.environment().value(u"PATH"_s);
        program.setVariable(u"PATH"_s, home.file(u"opener"_s) + u':' + path);
    }

    [[nodiscard]] QString opened() const
    {
        QFile file(home.file(u"opened"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// The program alone, without anything that is installed with it.
    void useProgramFarFromItsDocuments()
    {
        const QString alone = desktop.folder() + u"/far/away/orvanta"_s;
        ASSERT_TRUE(QDir().mkpath(QFileInfo(alone).path()));
        ASSERT_TRUE(QFile::copy(programPath(), alone));
        program.setProgram(alone);
    }

    /// Waits until the splash is gone: its window would be taken for one that comes or goes.
    [[nodiscard]] bool startAlone(const QStringList& arguments = {})
    {
        return program.startAndShow(arguments) &&
               waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; });
    }

    [[nodiscard]] bool chooseTutorial() { return window().clickInMenu(u"Help..."_s, {2, 3}); }
    [[nodiscard]] bool chooseAbout() { return window().clickInMenu(u"Help..."_s, {3, 3}); }
    [[nodiscard]] bool chooseCdCreate() { return window().clickInMenu(u"Tools..."_s, {2, 3}); }
    [[nodiscard]] bool chooseTheAddIn()
    {
        return window().clickInSubmenu(u"Tools..."_s, {3, 3}, {1, 1});
    }
};

TEST_F(Companions, AMissingProgramEndsThePlayerWithTheReportAndEarlierOnesGoOn)
{
    putLastingCompanion(u"tutorial.exe"_s);
    home.set(u"add-ins"_s, u"num"_s, u"1"_s);
    home.set(u"add-ins"_s, u"namee1"_s, u"&Gone"_s);
    home.set(u"add-ins"_s, u"path1"_s, u"gone.exe"_s);
    ASSERT_TRUE(startAlone());
    ASSERT_TRUE(chooseTutorial());
    ASSERT_TRUE(waitFor([this] { return companionProcess() > 0; }));
    ASSERT_TRUE(chooseTheAddIn());
    ASSERT_TRUE(program.next(u"^Run-time error '53': File not found"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"Orvanta"_s) == 1; }));
    ASSERT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == u"Orvanta"; }));
    desktop.press(u"Return"_s);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_EQ(::kill(companionProcess(), 0), 0) << "the companion has ended with the player";
    EXPECT_EQ(home.get(u"ftl"_s, u"wr"_s), u"0");
}

TEST_F(Companions, APlayerThatEndsLeavesItsCompanionsRunning)
{
    putLastingCompanion(u"cdcreate"_s);
    ASSERT_TRUE(startAlone());
    ASSERT_TRUE(chooseCdCreate());
    ASSERT_TRUE(waitFor([this] { return companionProcess() > 0; }));
    window().press(u"Close button"_s);
    ASSERT_EQ(program.statusAtEnd(), 0);
    EXPECT_EQ(::kill(companionProcess(), 0), 0);
}

TEST_F(Companions, AMissingHandbookIsStillAskedForAndHasItsShortcut)
{
    putOpener();
    useProgramFarFromItsDocuments();
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(startAlone()) << program.said();
    ASSERT_TRUE(desktop.activate(u"!Orvanta!"_s));
    desktop.press(u"F1"_s);
    ASSERT_TRUE(waitFor([this] { return !opened().isEmpty(); }));
    const QUrl address = QUrl::fromLocalFile(home.file(u"help_eng.htm"_s));
    EXPECT_EQ(opened(), address.toString(QUrl::FullyEncoded));
    EXPECT_EQ(ReadIni(u"InternetShortcut"_s, u"URL"_s, home.file(u"help.url"_s)),
              u"file:///"_s + home.file(u"help_eng.htm"_s));
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(Companions, TheTutorialPlaysItsLessonsInThePlayerThatStartedIt)
{
    ASSERT_TRUE(startAlone());
    ASSERT_TRUE(chooseTutorial());
    ASSERT_TRUE(loads(5, 20));
    ASSERT_TRUE(plays(u"start 1 1 A packet is clips in an order, each with a text"_s));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(plays(u"start 1 2"_s));
}

TEST_F(Companions, AnAddInStartsMinimised)
{
    QFile addIn(home.file(u"viewer.exe"_s));
    ASSERT_TRUE(addIn.open(QIODevice::WriteOnly));
    addIn.write("#!/bin/sh\necho $$ >\"$ORVANTA_HOME/pid\"\n"
                "mpv --no-config --vo=x11 --ao=null --idle=yes --force-window=yes --title=addin\n");
    addIn.close();
    addIn.setPermissions(addIn.permissions() | QFile::ExeOwner);
    home.set(u"add-ins"_s, u"num"_s, u"1"_s);
    home.set(u"add-ins"_s, u"namee1"_s, u"&Viewer"_s);
    home.set(u"add-ins"_s, u"path1"_s, u"viewer.exe"_s);
    ASSERT_TRUE(startAlone());
    ASSERT_TRUE(chooseTheAddIn());
    EXPECT_TRUE(waitFor([this] {
        return desktop.run(u"xprop"_s, {u"-name"_s, u"addin"_s, u"WM_STATE"_s}).contains("Iconic");
    }));
    EXPECT_EQ(desktop.visibleWindows(u"addin"_s), 0);
}

TEST_F(Companions, ImportOfANewUserComesUpAlthoughItIsStartedMinimised)
{
    ASSERT_TRUE(startAlone());
    ASSERT_TRUE(window().clickInSubmenu(u"Tools..."_s, {3, 3}, {1, 2}));
    ASSERT_TRUE(program.next(u"^orvanta.desktop: minimised "_s));
    const auto state = [this] {
        return desktop.run(u"xprop"_s, {u"-name"_s, u"Import - Orvanta"_s, u"WM_STATE"_s});
    };
    EXPECT_TRUE(waitFor([&] { return state().contains("Normal"); }));
    EXPECT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == u"Import - Orvanta"; }));
    // A key reaches it and ends it: one that is down would stay.
    desktop.press(u"Escape"_s);
    EXPECT_TRUE(waitFor([&] { return !state().contains("WM_STATE"); }));
}

TEST_F(Companions, WhatIsImportedOpensInTheRunningPlayer)
{
    const QString list = writeBytes(
        file(u"list.m3u"_s), "#EXTINF:2,From a list\n" + media(u"sound2.wav"_s).toUtf8() + '\n');
    ASSERT_TRUE(startAlone());
    OwnedProcess import;
    QProcessEnvironment variables = desktop.environment();
    variables.insert(u"ORVANTA_HOME"_s, home.folder());
    import.setProcessEnvironment(variables);
    import.start(QStringLiteral(ORVANTA_BUILD_DIR "/companions/orvanta-import"),
                 {list, u"--open"_s});
    ASSERT_TRUE(loads(1, 1));
    EXPECT_TRUE(plays(u"start 1 1 From a list"_s));
    EXPECT_TRUE(QFile::exists(file(u"list.vxl"_s)));
}

TEST_F(Companions, AboutOpensBesideThePlayerWithoutHoldingItUp)
{
    ASSERT_TRUE(startAlone({media(u"tone20.wav"_s)}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    ASSERT_TRUE(chooseAbout());
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"About author"_s) == 1; }));
    // It may lie over the main window's buttons.
    ASSERT_TRUE(desktop.closeWindow(u"!Orvanta!"_s));
    ASSERT_EQ(program.statusAtEnd(), 0);
}

} // namespace orvanta::e2e
