// The start with the session, the command on folders, the desktop's caches.

#include "platform/file_types/desktop_caches.h"
#include "platform/file_types/desktop_entries.h"
#include "platform/file_types/registry.h"
#include "tests/support/desktop_room.h"
#include "tests/support/log_capture.h"
#include "tests/support/settings_folder.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

const QString kRunKey = u"software\\microsoft\\windows\\currentversion\\run"_s;
const QString kFolderKey = u"Folder\\shell\\Play clips\\command"_s;
constexpr const char16_t* kAutostart = u"config/autostart/orvanta.desktop";
constexpr const char16_t* kServiceMenu = u"data/kio/servicemenus/orvanta-play-clips.desktop";

struct DesktopCommands : testing::Test
{
    void setAutostart()
    {
        registry.RegWriteString(RegistryHive::LocalMachine, kRunKey, u"orvanta"_s,
                                folder.path() + u"\\orvanta.exe /auto"_s);
    }

    void removeAutostart()
    {
        registry.RegDeleteValue(RegistryHive::LocalMachine, kRunKey, u"orvanta"_s);
    }

    [[nodiscard]] QString autostart() const
    {
        return registry.RegReadString(RegistryHive::LocalMachine, kRunKey, u"orvanta"_s);
    }

    void registerFolderCommand()
    {
        registry.RegWriteString(RegistryHive::ClassesRoot, kFolderKey, {},
                                folder.path() + u"\\orvanta.exe /f%1"_s);
    }

    /// Nothing else is found than these.
    void installPrograms(const QStringList& names)
    {
        for (const QString& name : names) {
            const QString file = u"bin/"_s + name;
            room.write(file, "#!/bin/sh\n");
            QFile::setPermissions(room.path(file), QFile::ReadOwner | QFile::ExeOwner);
        }
        room.set("PATH", room.path(u"bin") + u":/usr/bin:/bin"_s);
    }

    /// A stand-in for the program: writes its arguments into "said", one a line, and "end".
    [[nodiscard]] QString scribe() const
    {
        room.write(u"it's a $program/orvanta",
                   "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done >>\"" +
                       room.path(u"said").toUtf8() + "\"\necho end >>\"" +
                       room.path(u"said").toUtf8() + "\"\n");
        const QString program = room.path(u"it's a $program/orvanta");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return program;
    }

    /// What the desktop's library offers as openers of a type.
    static QByteArray openers(const QString& type)
    {
        QProcess gio;
        gio.start(u"gio"_s, {u"mime"_s, type});
        EXPECT_TRUE(gio.waitForFinished()) << "gio does not run";
        return gio.readAllStandardOutput();
    }

    /// Runs the service menu's command on a folder, read by a parser of the standard's that is not
    /// ours: as the command of an application.
    void chooseInServiceMenu(const QString& chosen) const
    {
        const QByteArray menu = room.bytes(kServiceMenu);
        const qsizetype command = menu.indexOf("\nExec=");
        room.write(u"menu.desktop",
                   "[Desktop Entry]\nType=Application\nName=menu" +
                       menu.mid(command, menu.indexOf('\n', command + 1) - command) + '\n');
        QProcess launcher;
        launcher.start(u"gio"_s, {u"launch"_s, room.path(u"menu.desktop"), chosen});
        EXPECT_TRUE(launcher.waitForFinished()) << "gio does not run";
        EXPECT_EQ(launcher.exitCode(), 0) << launcher.readAllStandardError().constData();
    }

    DesktopRoom room;
    SettingsFolder folder;
    Registry registry{folder.path(), u"/opt/o/orvanta"_s};
};

const QStringList kManagers = {u"nautilus"_s, u"nemo"_s, u"caja"_s, u"dolphin"_s};
const QStringList kScripts = {u"data/nautilus/scripts/Play clips"_s,
                              u"data/nemo/scripts/Play clips"_s,
                              u"config/caja/scripts/Play clips"_s};

/// What the standard's validator has to say against a file.
QByteArray complaints(const QString& file)
{
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(u"desktop-file-validate"_s, {file});
    if (!validator.waitForFinished()) {
        return "desktop-file-validate does not run";
    }
    return validator.readAll();
}

} // namespace

TEST_F(DesktopCommands, TheStartWithTheSessionIsAnAutostartFile)
{
    setAutostart();
    EXPECT_TRUE(room.bytes(kAutostart).contains("\nExec=/opt/o/orvanta /auto\n"));
    EXPECT_EQ(autostart(), folder.path() + u"\\orvanta.exe /auto"_s);
}

TEST_F(DesktopCommands, WithoutTheStartWithTheSessionTheFileIsGone)
{
    setAutostart();
    removeAutostart();
    EXPECT_FALSE(room.has(kAutostart));
    EXPECT_EQ(autostart(), QString());
    EXPECT_NO_THROW(removeAutostart()); // there is nothing any more
}

TEST_F(DesktopCommands, AStartThatTheUserSwitchedOffInTheDesktopReadsAsOff)
{
    setAutostart();
    room.write(kAutostart, room.bytes(kAutostart) + "Hidden=true\n");
    EXPECT_EQ(autostart(), QString());
    setAutostart();
    EXPECT_NE(autostart(), QString());
}

TEST_F(DesktopCommands, TheDesktopsValidatorAcceptsWhatIsWritten)
{
    setAutostart();
    registry.RegWriteString(RegistryHive::ClassesRoot, u".avi"_s, {}, u"vxavifile"_s);
    EXPECT_EQ(complaints(room.path(kAutostart)), "");
    EXPECT_EQ(complaints(room.path(u"data/applications/orvanta.desktop")), "");
}

TEST_F(DesktopCommands, FoldersHaveACommandInEveryFileManager)
{
    installPrograms(kManagers);
    registerFolderCommand();
    for (const QString& script : kScripts) {
        EXPECT_TRUE(QFileInfo(room.path(script)).isExecutable()) << qPrintable(script);
    }
    const QByteArray menu = room.bytes(u"data/kio/servicemenus/orvanta-play-clips.desktop");
    EXPECT_TRUE(menu.contains("\nName=Play clips\n"));
    EXPECT_TRUE(menu.contains(" /opt/o/orvanta %F\n")) << menu.constData();
    EXPECT_FALSE(room.has(u"data/applications")); // nothing that could open folders
}

TEST_F(DesktopCommands, AFileManagerThatIsNotInstalledGetsNoCommandForFolders)
{
    installPrograms({u"caja"_s});
    registerFolderCommand();
    EXPECT_FALSE(room.has(kScripts[0]));
    EXPECT_FALSE(room.has(kScripts[1]));
    EXPECT_TRUE(room.has(kScripts[2]));
    EXPECT_FALSE(room.has(u"data/kio"));
}

TEST_F(DesktopCommands, TheMenuOfAPackageIsNotDoubledInTheHome)
{
    installPrograms(kManagers);
    registerFolderCommand();
    ASSERT_TRUE(room.has(kServiceMenu));
    room.write(u"system/kio/servicemenus/orvanta-play-clips.desktop", "the package's");
    registerFolderCommand();
    EXPECT_FALSE(room.has(kServiceMenu));
    EXPECT_TRUE(room.has(kScripts[0]));
}

TEST_F(DesktopCommands, TheFolderScriptGoesWithTheProgram)
{
    installPrograms(kManagers);
    const QString program = scribe();
    Registry(folder.path(), program)
        .RegWriteString(RegistryHive::ClassesRoot, kFolderKey, {}, u"x"_s);
    ASSERT_TRUE(QFile::remove(program));
    EXPECT_EQ(QProcess::execute(room.path(kScripts.constFirst()), {room.path(u"data")}), 0);
    EXPECT_FALSE(room.has(kScripts.constFirst()));
    EXPECT_FALSE(room.has(u"said"));
}

TEST_F(DesktopCommands, TheMenuOfKdesFileManagerStartsTheProgramAndGoesWithIt)
{
    installPrograms(kManagers);
    const QString program = scribe();
    Registry(folder.path(), program)
        .RegWriteString(RegistryHive::ClassesRoot, kFolderKey, {}, u"x"_s);
    ASSERT_TRUE(room.has(kServiceMenu));
    chooseInServiceMenu(room.path(u"data"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return room.bytes(u"said").endsWith("end\n"); }, 20000));
    EXPECT_EQ(room.bytes(u"said"), room.path(u"data").toUtf8() + "\nend\n");
    EXPECT_TRUE(room.has(kServiceMenu));

    ASSERT_TRUE(QFile::remove(program));
    chooseInServiceMenu(room.path(u"data"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !room.has(kServiceMenu); }, 20000));
}

TEST_F(DesktopCommands, WhatTheDesktopKnowsOfARemovedProgramIsNotOfferedAnyMore)
{
    const QString program = scribe();
    Registry own(folder.path(), program);
    own.RegWriteString(RegistryHive::ClassesRoot, u".avi"_s, {}, u"vxavifile"_s);
    own.RegWriteString(RegistryHive::LocalMachine, kRunKey, u"orvanta"_s, u"x"_s);
    const QByteArray tried = "\nTryExec=" + program.toUtf8() + '\n';
    EXPECT_TRUE(room.bytes(kAutostart).contains(tried));
    EXPECT_TRUE(room.bytes(u"data/applications/orvanta.desktop").contains(tried));
    EXPECT_TRUE(openers(u"video/x-msvideo"_s).contains("orvanta.desktop"));
    ASSERT_TRUE(QFile::remove(program));
    EXPECT_FALSE(openers(u"video/x-msvideo"_s).contains("orvanta.desktop"));
}

TEST_F(DesktopCommands, TheFolderCommandIsWrittenAgainWhenSomebodyChangedIt)
{
    installPrograms(kManagers);
    registerFolderCommand();
    const QByteArray before = room.bytes(kScripts.constFirst());
    room.write(kScripts.constFirst(), "something of the user's");
    registerFolderCommand();
    EXPECT_EQ(room.bytes(kScripts.constFirst()), before);
}

TEST_F(DesktopCommands, TheFolderScriptStartsTheProgramOnceForAllSelectedFolders)
{
    installPrograms(kManagers);
    Registry(folder.path(), scribe())
        .RegWriteString(RegistryHive::ClassesRoot, kFolderKey, {}, u"x"_s);
    const QString inside = room.path(u"films/it's one");
    const QString other = room.path(u"films/another");
    QDir().mkpath(inside);
    QDir().mkpath(other);
    room.write(u"films/no folder", "");
    QProcess script;
    script.setWorkingDirectory(room.path(u"films"));
    script.start(room.path(kScripts.constFirst()), {u"it's one"_s, u"no folder"_s, other});
    ASSERT_TRUE(script.waitForFinished());
    EXPECT_EQ(script.exitCode(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return room.bytes(u"said").endsWith("end\n"); }, 20000));
    EXPECT_EQ(room.bytes(u"said"), inside.toUtf8() + '\n' + other.toUtf8() + "\nend\n");
}

TEST_F(DesktopCommands, AnotherHomeThanTheProgramsOwnChoiceIsCarriedAlong)
{
    installPrograms(kManagers);
    Registry elsewhere(folder.path(), scribe(), u"/a b/it's"_s);
    elsewhere.RegWriteString(RegistryHive::ClassesRoot, kFolderKey, {}, u"x"_s);
    elsewhere.RegWriteString(RegistryHive::LocalMachine, kRunKey, u"orvanta"_s, u"x"_s);
    elsewhere.RegWriteString(RegistryHive::ClassesRoot, u".avi"_s, {}, u"vxavifile"_s);
    const QByteArray start = "\nExec=env \"ORVANTA_HOME=/a b/it's\" ";
    for (const QString& entry :
         {QStringView(kAutostart).toString(), u"data/applications/orvanta.desktop"_s}) {
        EXPECT_TRUE(room.bytes(entry).contains(start)) << room.bytes(entry).constData();
        EXPECT_EQ(complaints(room.path(entry)), "");
    }
    EXPECT_TRUE(room.bytes(u"data/kio/servicemenus/orvanta-play-clips.desktop").contains(start));
    EXPECT_TRUE(room.bytes(kScripts.constFirst()).contains(R"(ORVANTA_HOME='/a b/it'\''s' ')"));
}

TEST_F(DesktopCommands, APathWithSpecialCharactersIsQuotedAsTheStandardWants)
{
    EXPECT_EQ(execQuoted(u"/opt/o"_s), "/opt/o");
    EXPECT_EQ(execQuoted(u"/a b/50%"_s), "\"/a b/50%%\"");
    EXPECT_EQ(execQuoted(u"/$a`\"b"_s), R"("/\\$a\\`\\"b")");
    EXPECT_EQ(execQuoted(u"/a\\b"_s), R"("/a\\\\b")");
    EXPECT_EQ(shellQuoted(u"/it's"_s), R"('/it'\''s')");
}

TEST_F(DesktopCommands, ADesktopStartsAProgramWithAnUnusualPath)
{
    Registry(folder.path(), scribe())
        .RegWriteString(RegistryHive::ClassesRoot, u".avi"_s, {}, u"vxavifile"_s);
    const QString entry = room.path(u"data/applications/orvanta.desktop");
    QProcess launcher;
    launcher.start(u"gio"_s, {u"launch"_s, entry, room.path(u"a clip.avi")});
    ASSERT_TRUE(launcher.waitForFinished()) << "gio does not run";
    EXPECT_TRUE(QTest::qWaitFor([&] { return room.bytes(u"said").endsWith("end\n"); }, 20000))
        << launcher.readAllStandardError().constData();
    EXPECT_EQ(room.bytes(u"said"), room.path(u"a clip.avi").toUtf8() + "\nend\n");
}

// Caches

namespace {

struct Caches : DesktopCommands
{
    /// Puts a tool into a folder that is searched before the system's.
    void makeTool(const QByteArray& name, const QByteArray& script)
    {
        const QString file = u"tools/"_s + QString::fromUtf8(name);
        room.write(file, "#!/bin/sh\n" + script);
        QFile::setPermissions(room.path(file),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        room.set("PATH", room.path(u"tools") + u":/usr/bin:/bin"_s);
    }

    [[nodiscard]] QByteArray runs() const { return room.bytes(u"runs"); }
    [[nodiscard]] QByteArray recorder(const QByteArray& name) const
    {
        return "echo " + name + " \"$1\" >>" + room.path(u"runs").toUtf8() + '\n';
    }

    static bool waitUntilIdle(const DesktopCaches& caches)
    {
        return QTest::qWaitFor([&] { return !caches.isBusy(); }, 20000);
    }
};

} // namespace

TEST_F(Caches, RequestsThatComeTogetherAreServedOnce)
{
    makeTool("update-mime-database", recorder("types"));
    makeTool("update-desktop-database", recorder("entries"));
    DesktopCaches caches;
    for (int i = 0; i < 100; ++i) {
        caches.refreshTypes();
        caches.refreshEntries();
    }
    EXPECT_EQ(runs(), ""); // nothing has run yet: nobody waits
    ASSERT_TRUE(waitUntilIdle(caches));
    QByteArrayList lines = runs().trimmed().split('\n');
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, (QByteArrayList{"entries " + room.path(u"data/applications").toUtf8(),
                                     "types " + room.path(u"data/mime").toUtf8()}));
}

TEST_F(Caches, ARequestDuringARunIsServedByAnother)
{
    makeTool("update-mime-database", recorder("types") + "while [ -e " +
                                         room.path(u"slow").toUtf8() + " ]; do sleep 0.01; done\n");
    room.write(u"slow", "");
    DesktopCaches caches;
    caches.refreshTypes();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !runs().isEmpty(); }, 20000));
    caches.refreshTypes();
    QFile::remove(room.path(u"slow"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return runs().count('\n') == 2; }, 20000));
    ASSERT_TRUE(waitUntilIdle(caches));
    EXPECT_EQ(runs().count('\n'), 2);
}

TEST_F(Caches, WhatIsWantedAtTheEndIsStillDone)
{
    makeTool("update-mime-database", recorder("types"));
    std::atomic<bool> worked = false;
    {
        DesktopCaches caches;
        caches.refreshTypes();
        caches.runLater([&] { worked = true; });
    }
    EXPECT_EQ(runs().count('\n'), 1);
    EXPECT_TRUE(worked);
}

TEST_F(Caches, AMissingToolIsLoggedAndNothingElse)
{
    room.set("PATH", room.path(u"empty"));
    const test::LogCapture log("orvanta.desktop");
    DesktopCaches caches;
    caches.refreshTypes();
    ASSERT_TRUE(waitUntilIdle(caches));
    EXPECT_FALSE(test::LogCapture::lines().filter(u"update-mime-database: "_s).isEmpty());
}

TEST_F(Caches, ARegisteredTypeRefreshesWhatItChanged)
{
    makeTool("update-mime-database", recorder("types"));
    makeTool("update-desktop-database", recorder("entries"));
    const auto write = [&](const QString& key, const QString& value) {
        registry.RegWriteString(RegistryHive::ClassesRoot, key, {}, value);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !registry.isWorkingInBackground(); }, 20000));
    };
    write(u".avi"_s, u"vxavifile"_s);
    EXPECT_TRUE(runs().contains("entries"));
    EXPECT_FALSE(runs().contains("types"));
    write(u".xyz"_s, u"vxxyzfile"_s);
    EXPECT_TRUE(runs().contains("types"));
    const QByteArray before = runs();
    write(u".xyz"_s, u"vxxyzfile"_s);
    EXPECT_EQ(runs(), before);
}

} // namespace orvanta
