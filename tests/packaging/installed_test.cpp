// The installed program: started, used, removed. Everything the user has is in a folder of its own.

#include "core/ini.h"
#include "tests/e2e/support/end_to_end.h"
#include "tests/packaging/installed_root.h"

#include <QDir>

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

using test::InstalledRoot;
using test::Outcome;

class Installed : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        ASSERT_FALSE(test::packageFiles().isEmpty());
        const Outcome installed = root.install();
        ASSERT_EQ(installed.status, 0) << installed.output.constData();
        program.setProgram(root.path(u"usr/bin/orvanta"_s));
        program.setVariable(u"ORVANTA_HOME"_s, QString()); // the user's own folder, then
        program.setVariable(u"XDG_DATA_DIRS"_s, root.path(u"usr/share"_s) + u":/usr/share"_s);
    }

    [[nodiscard]] QString userFolder() const
    {
        return desktop.environment().value(u"XDG_DATA_HOME"_s) + u"/orvanta"_s;
    }
    [[nodiscard]] QString setting(const QString& section, const QString& key) const
    {
        return ReadIni(section, key, userFolder() + u"/orvanta.ini"_s);
    }
    void chooseLanguage(const QString& language) const
    {
        QDir().mkpath(userFolder());
        QFile::copy(root.path(u"usr/share/orvanta/defaults/orvanta.ini"_s),
                    userFolder() + u"/orvanta.ini"_s);
        QFile::setPermissions(userFolder() + u"/orvanta.ini"_s,
                              QFile::ReadOwner | QFile::WriteOwner);
        WriteIni(u"main"_s, u"language"_s, language, userFolder() + u"/orvanta.ini"_s);
    }

    /// The environment of a session in which the package is installed.
    [[nodiscard]] QProcessEnvironment session() const
    {
        QProcessEnvironment variables = desktop.environment();
        variables.insert(u"PATH"_s, root.path(u"usr/bin"_s) + u":"_s + variables.value(u"PATH"_s));
        variables.insert(u"XDG_DATA_DIRS"_s, root.path(u"usr/share"_s) + u":/usr/share"_s);
        // Outside of any desktop the opener does not ask the database of types at all.
        variables.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
        return variables;
    }
    QByteArray inSession(const QString& command, const QStringList& arguments) const
    {
        OwnedProcess process;
        process.setProcessEnvironment(session());
        process.start(command, arguments);
        process.waitForFinished(kPatienceMs);
        return process.readAllStandardOutput().trimmed();
    }
    void buildCaches() const
    {
        inSession(u"update-mime-database"_s, {root.path(u"usr/share/mime"_s)});
        inSession(u"update-desktop-database"_s, {root.path(u"usr/share/applications"_s)});
    }
    [[nodiscard]] QString sample(const QString& name) const
    {
        return root.path(u"usr/share/orvanta/samples/"_s + name);
    }

    InstalledRoot root;
};

TEST_F(Installed, FillsTheUsersFolderAtTheFirstStartAndPlaysASample)
{
    // An administrator's change reaches every new user.
    WriteIni(u"types"_s, u"file1"_s, u"ogv"_s,
             root.path(u"usr/share/orvanta/defaults/orvanta.ini"_s));
    program.start({sample(u"breathing.vxl"_s)});
    AccessibilityBus bus(desktop);
    const auto next = bus.control(program.pid(), u"push button"_s, u"Next..."_s);
    ASSERT_TRUE(next);
    desktop.click(next->place().center());
    ASSERT_TRUE(plays(u"start 1 1"_s));
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_EQ(setting(u"main"_s, u"language"_s), u"1");
    EXPECT_EQ(setting(u"options"_s, u"as"_s), u"1");
    EXPECT_EQ(setting(u"types"_s, u"file0"_s), u"avi");
    EXPECT_EQ(setting(u"types"_s, u"file1"_s), u"ogv");
}

TEST_F(Installed, NeedsNothingOfTheBuildAndWritesNothingBesideItself)
{
    chooseLanguage(u"1"_s);
    const QStringList before = root.contents();
    ASSERT_TRUE(program.startAndShow({sample(u"samples.vxg"_s)}));
    ASSERT_TRUE(loads(3, 19));
    program.sendSignal(SIGTERM);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_EQ(root.contents(), before);
}

TEST_F(Installed, TheTutorialOfTheMenuPlaysItsLessonsInTheRunningProgram)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
    ASSERT_TRUE(window().clickInMenu(u"Help..."_s, {2, 3}));
    ASSERT_TRUE(loads(5, 20));
    EXPECT_TRUE(plays(u"start 1 1"_s));
}

TEST_F(Installed, CdCreateOfTheMenuOpensItsWindowAndThePlayerGoesOn)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow({sample(u"samples.vxg"_s)}));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
    ASSERT_TRUE(window().clickInMenu(u"Tools..."_s, {2, 3}));
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"CD Create"_s) == 1; }));
    EXPECT_TRUE(program.isRunning());
    ASSERT_TRUE(desktop.closeWindow(u"CD Create"_s));
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"CD Create"_s) == 0; }));
}

TEST_F(Installed, CdCreateIsCalledByItsNameAtATerminal)
{
    const QString box = root.path(u"a box"_s);
    inSession(root.path(u"usr/bin/cdcreate"_s), {u"--out"_s, box, sample(u"samples.vxg"_s)});
    EXPECT_TRUE(QFile::exists(box + u"/READ ME.txt"_s));
    EXPECT_TRUE(QFile::exists(box + u"/media/rhythm.mp4"_s));
}

TEST_F(Installed, TheTutorialSpeaksTheLanguageOfTheInterface)
{
    chooseLanguage(u"2"_s);
    ASSERT_TRUE(program.startAndShow());
    OwnedProcess tutorial;
    tutorial.setProcessEnvironment(session());
    tutorial.start(root.path(u"usr/libexec/orvanta/tutorial"_s), {});
    ASSERT_TRUE(loads(5, 20));
    EXPECT_TRUE(plays(u"start 1 1 Пакет — это клипы по порядку, у каждого свой текст"_s));
}

TEST_F(Installed, TheAddInsOfTheMenuOpenAndThePlayerGoesOn)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
    for (const int entry : {1, 2}) {
        const QString title = entry == 1 ? u"Import - Orvanta"_s : u"Export - Orvanta"_s;
        ASSERT_TRUE(window().clickInSubmenu(u"Tools..."_s, {3, 3}, {entry, 2}));
        ASSERT_TRUE(waitFor([&] { return desktop.visibleWindows(title) == 1; }));
        ASSERT_TRUE(waitFor([&] { return desktop.activeWindowTitle() == title; }));
        desktop.press(u"Escape"_s);
        ASSERT_TRUE(waitFor([&] { return desktop.visibleWindows(title) == 0; }));
    }
    EXPECT_TRUE(program.isRunning());
}

TEST_F(Installed, ImportHandsItsLessonToTheRunningProgram)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    const QString list = writeBytes(file(u"list.m3u"_s), media(u"sound2.wav"_s).toUtf8() + '\n');
    OwnedProcess import;
    import.setProcessEnvironment(session());
    import.start(root.path(u"usr/bin/orvanta-import"_s), {list, u"--open"_s});
    ASSERT_TRUE(loads(1, 1));
    EXPECT_TRUE(plays(u"start 1 1 sound2"_s));
}

TEST_F(Installed, AMissingDocumentationIsStillHandedToTheDesktopsOpener)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(QFile::remove(root.path(u"usr/share/orvanta/help_eng.htm"_s)));
    QFile opener(userFolder() + u"/xdg-open"_s);
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write("#!/bin/sh\nhere=$(dirname \"$0\")\nprintf %s \"$1\" >\"$here/said.part\"\n"
                 "mv \"$here/said.part\" \"$here/said\"\n");
    opener.close();
    opener.setPermissions(opener.permissions() | QFile::ExeOwner);
    program.setVariable(u"PATH"_s, userFolder() + u':' + session().value(u"PATH"_s));
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
    ASSERT_TRUE(window().clickInMenu(u"Help..."_s, {1, 3}));
    QFile said(userFolder() + u"/said"_s);
    ASSERT_TRUE(waitFor([&] { return said.exists(); }));
    ASSERT_TRUE(said.open(QIODevice::ReadOnly));
    EXPECT_EQ(said.readAll(), "file://" + userFolder().toUtf8() + "/help_eng.htm");
    EXPECT_TRUE(program.isRunning());
}

TEST_F(Installed, PacketsAndGroupsAreKnownToTheDesktopAndBelongToIt)
{
    buildCaches();
    EXPECT_EQ(inSession(u"xdg-mime"_s, {u"query"_s, u"filetype"_s, sample(u"rhythm.vxl"_s)}),
              "application/x-orvanta-packet");
    EXPECT_EQ(inSession(u"xdg-mime"_s, {u"query"_s, u"filetype"_s, sample(u"samples.vxg"_s)}),
              "application/x-orvanta-group");
    for (const QString& type : {u"packet"_s, u"group"_s}) {
        EXPECT_EQ(inSession(u"xdg-mime"_s,
                            {u"query"_s, u"default"_s, u"application/x-orvanta-"_s + type}),
                  "orvanta.desktop");
    }
}

TEST_F(Installed, TheDesktopEntryAndTheDesktopsOpenerHandFilesToTheRunningProgram)
{
    buildCaches();
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    inSession(u"gio"_s, {u"launch"_s, root.path(u"usr/share/applications/orvanta.desktop"_s),
                         sample(u"rhythm.vxl"_s)});
    ASSERT_TRUE(loads(1, 8));
    inSession(u"xdg-open"_s, {sample(u"breathing.vxl"_s)});
    EXPECT_TRUE(loads(1, 6));
}

TEST_F(Installed, AFileManagersFolderActionPlaysTheFolderInTheRunningProgram)
{
    chooseLanguage(u"1"_s);
    QDir().mkpath(file(u"bin"_s));
    QFile::copy(u"/bin/true"_s, file(u"bin/nautilus"_s)); // a file manager that is found
    program.setVariable(u"PATH"_s, file(u"bin"_s) + u':' + desktop.environment().value(u"PATH"_s));
    ASSERT_TRUE(program.startAndShow());
    const QString action =
        desktop.environment().value(u"XDG_DATA_HOME"_s) + u"/nautilus/scripts/Play clips"_s;
    ASSERT_TRUE(waitFor([&] { return QFile::exists(action); }));
    inSession(action, {sample(u"breathing"_s)});
    EXPECT_TRUE(loads(1, 6));
}

TEST_F(Installed, StartedWithTheSessionItStaysHiddenAndServesTheNextLaunch)
{
    chooseLanguage(u"1"_s);
    program.start({u"/auto"_s});
    ASSERT_TRUE(program.next(u"^orvanta.startup: ready"_s));
    EXPECT_EQ(desktop.visibleWindows(u"!Orvanta!"_s), 0);
    inSession(root.path(u"usr/bin/orvanta"_s), {sample(u"rhythm.vxl"_s)});
    EXPECT_TRUE(loads(1, 8));
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
}

TEST_F(Installed, IsRemovedWithoutATraceOutsideTheUsersFolder)
{
    chooseLanguage(u"1"_s);
    ASSERT_TRUE(program.startAndShow());
    program.sendSignal(SIGTERM);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_GT(root.contents().size(), 50);
    const Outcome removed = root.purge();
    EXPECT_EQ(removed.status, 0) << removed.output.constData();
    EXPECT_EQ(root.contents(), QStringList()) << qPrintable(root.contents().join(u'\n'));
    EXPECT_TRUE(QFile::exists(userFolder() + u"/orvanta.ini"_s));
}

} // namespace orvanta::e2e
