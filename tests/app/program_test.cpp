// The built program on a platform that draws into memory: what ends a start, and what a start does.

#include "platform/file_types/registry.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kSettings = "[main]\r\nlanguage=1\r\n[ftl]\r\nwr=0\r\nnum=0\r\n"
                                  "[types]\r\nnum=1\r\nfile0=avi\r\n[save]\r\nbalance=50\r\n";
constexpr const char* kShown = "orvanta.startup: main window shown";

QProcessEnvironment environment(const SettingsFolder& folder)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"ORVANTA_HOME"_s, folder.path());
    variables.insert(u"XDG_CONFIG_HOME"_s, folder.file(u"config"_s));
    variables.insert(u"XDG_DATA_HOME"_s, folder.file(u"data"_s));
    variables.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    variables.insert(u"QT_LOGGING_RULES"_s, u"orvanta.*=true"_s);
    return variables;
}

struct Program : testing::Test
{
    SettingsFolder folder{kSettings};

    void launch(Probe& program, const QStringList& arguments = {})
    {
        launchIn(environment(folder), program, arguments);
    }

    /// The program with a variable whose bytes no text holds, started by a shell.
    static void launchWithForeignHome(Probe& program)
    {
        program.setReadChannel(QProcess::StandardError);
        program.start(u"sh"_s, {u"-c"_s, u"ORVANTA_HOME=$(printf '/tmp/\\377') exec \"$0\""_s,
                                builtProgram("orvanta")});
    }

    static void launchIn(const QProcessEnvironment& variables, Probe& program,
                         const QStringList& arguments = {})
    {
        program.setProcessEnvironment(variables);
        program.setReadChannel(QProcess::StandardError);
        program.startProgram("orvanta", arguments);
    }

    /// The log lines up to and with this one; up to the end when it does not come.
    static QByteArrayList linesUntil(Probe& program, const QByteArray& wanted)
    {
        QByteArrayList lines;
        do {
            lines.append(program.nextLine());
        } while (lines.last() != wanted && !lines.last().isEmpty());
        return lines;
    }

    static bool waitForLine(Probe& program, const QByteArray& wanted)
    {
        return linesUntil(program, wanted).last() == wanted;
    }

    /// Lies where a file is to be: nothing can be written there, whoever the user is.
    void putInTheWay(const QString& name) const
    {
        ASSERT_TRUE(QDir().mkpath(folder.file(name + u"/in the way"_s)));
    }

    static void expectFailure(Probe& program, const QByteArray& line)
    {
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 1);
        const QByteArray said = program.readAllStandardError();
        EXPECT_TRUE(said.contains(line + '\n')) << said.constData();
    }

    void set(const char* section, const char* key, const QString& value)
    {
        WriteIni(QString::fromUtf8(section), QString::fromUtf8(key), value, folder.ini());
    }
};

struct WithoutDisplay : testing::Test
{
    Probe program;
    SettingsFolder around{QByteArray()};
    QString home = around.file(u"home"_s); // where no settings are

    void launch(const QStringList& arguments)
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s}) {
            variables.remove(name);
        }
        variables.insert(u"ORVANTA_HOME"_s, home);
        program.setProcessEnvironment(variables);
        program.startProgram("orvanta", arguments);
        ASSERT_TRUE(program.waitForFinished());
    }
};

} // namespace

TEST_F(WithoutDisplay, VersionAndHelpAreAnswered)
{
    launch({u"--version"_s});
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().startsWith("Orvanta 3.3\nPictures: drawn by "));
    launch({u"--help"_s});
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().startsWith("Usage: orvanta"));
    EXPECT_FALSE(QFileInfo::exists(home)) << "asking makes no settings";
}

TEST_F(WithoutDisplay, HelpSpeaksTheStoredLanguage)
{
    home = around.path();
    WriteIni(u"main"_s, u"language"_s, u"2"_s, around.ini());
    launch({u"--help"_s});
    EXPECT_EQ(program.exitCode(), 0);
    const QByteArray said = program.readAllStandardOutput();
    EXPECT_TRUE(said.startsWith("Вызов: orvanta")) << said.constData();
}

TEST_F(WithoutDisplay, AStartSaysSoAndFails)
{
    launch({});
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.readAllStandardError().contains("there is no display"));
}

TEST_F(WithoutDisplay, ADisplayThatDoesNotAnswerFailsWithoutACrash)
{
    launch({u"-platform"_s, u"xcb"_s});
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
}

TEST_F(Program, AnAbsentNumberOfTypesEndsTheStartWithATypeMismatch)
{
    set("types", "num", {});
    Probe program;
    launch(program);
    expectFailure(program,
                  "Run-time error '13': Type mismatch\n" + folder.ini().toUtf8() +
                      ": in section [types] the value of num is \"\". Write a whole number "
                      "from 0 to 32767 there (how many such lines follow) and start the "
                      "program again.");
}

TEST_F(Program, AMissingSetupFileEndsTheStartWithFileNotFound)
{
    set("main", "screxe", u"x:\\dist\\setup12.exe"_s);
    Probe program;
    launch(program);
    expectFailure(program, "Run-time error '53': File not found");
}

TEST_F(Program, AMissingPlayerLibraryEndsTheStartWithFileNotFound)
{
    for (const QString& how : {u"none"_s, u"old"_s}) {
        SCOPED_TRACE(qPrintable(how));
        QProcessEnvironment variables = environment(folder);
        preloadUnusablePlayer(variables, how);
        Probe program;
        launchIn(variables, program, {folder.file(u"a.avi"_s)});
        expectFailure(program, "Run-time error '53': File not found");
        EXPECT_EQ(folder.value("ftl", "wr"), u"0");
        EXPECT_EQ(folder.value("main", "language"), u"1");
    }
}

TEST_F(Program, APlayerLibraryThatIsThereAgainFindsThePlaceFreeAndTheFilesWaiting)
{
    const QString clip = folder.write(u"a.avi"_s, "no clip");
    QProcessEnvironment variables = environment(folder);
    preloadUnusablePlayer(variables, u"none"_s);
    Probe failing;
    launchIn(variables, failing, {clip});
    expectFailure(failing, "Run-time error '53': File not found");
    Probe program;
    launch(program);
    EXPECT_TRUE(waitForLine(program, "orvanta.playlist: loaded 1 packets, 1 entries"));
}

TEST_F(Program, AQueueCountThatIsNoNumberEndsALaunchWithACommandLine)
{
    set("ftl", "num", u"many"_s);
    Probe program;
    launch(program, {u"/clips/a.avi"_s});
    expectFailure(program, "Run-time error '13': Type mismatch");
}

TEST_F(Program, AFailedStartLeavesThePlaceFree)
{
    set("types", "num", {});
    Probe failing;
    launch(failing);
    expectFailure(failing, "Run-time error '13': Type mismatch");
    set("types", "num", u"1"_s);
    Probe program;
    launch(program);
    EXPECT_TRUE(waitForLine(program, kShown));
}

TEST_F(Program, AStartShowsTheMainWindowAndATerminationEndsItInGoodOrder)
{
    Probe program;
    launch(program);
    ASSERT_TRUE(waitForLine(program, kShown));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(Program, AStartWritesTheFolderVerb)
{
    Probe program;
    launch(program);
    ASSERT_TRUE(waitForLine(program, kShown));
    EXPECT_EQ(
        Registry(folder.path())
            .RegReadString(RegistryHive::ClassesRoot, u"Folder\\shell\\Play clips\\command"_s, {}),
        folder.path() + u"\\orvanta.exe /f%1"_s);
}

TEST_F(Program, ARegistryFileThatCannotBeWrittenIsLoggedAndPassedOver)
{
    putInTheWay(u"registry.ini"_s);
    QDir().mkpath(folder.file(u"bin"_s));
    QFile::copy(u"/bin/true"_s, folder.file(u"bin/nautilus"_s)); // a file manager that is found
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.file(u"bin"_s).toUtf8() + ':' + path);
    Probe program;
    launch(program);
    qputenv("PATH", path);
    const QByteArrayList lines = linesUntil(program, kShown);
    EXPECT_EQ(lines.last(), kShown);
    EXPECT_TRUE(lines.contains("orvanta.desktop: " + folder.file(u"registry.ini"_s).toUtf8() +
                               " cannot be written"));
    // What the desktop needs does not depend on it.
    EXPECT_TRUE(QFileInfo(folder.file(u"data/nautilus/scripts/Play clips"_s)).isExecutable());
}

TEST_F(Program, AHomeThatCannotBeWrittenKeepsNobodyFromStarting)
{
    folder.write(u"config"_s, "a file where a folder should be");
    folder.write(u"data"_s, "another");
    putInTheWay(u"registry.ini"_s);
    Probe program;
    launch(program);
    EXPECT_TRUE(waitForLine(program, "orvanta.startup: ready"));
}

TEST_F(Program, TheFirstLaunchQueuesItsOwnPathUnderKeyOneAndOpensItItself)
{
    const QString clip = folder.write(u"a.avi"_s, "no clip");
    Probe program;
    launch(program, {clip});
    ASSERT_TRUE(waitForLine(program, "orvanta.playlist: loaded 1 packets, 1 entries"));
    EXPECT_EQ(folder.value("ftl", "1"), clip);
    EXPECT_TRUE(QTest::qWaitFor([&] { return folder.value("ftl", "num") == u"0"; }));
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
}

TEST_F(Program, ALaterLaunchHandsItsPathOverAndEnds)
{
    Probe first;
    launch(first);
    ASSERT_TRUE(waitForLine(first, kShown));
    const QString clip = folder.write(u"a.avi"_s, "no clip");
    Probe later;
    launch(later, {clip});
    ASSERT_TRUE(later.waitForFinished());
    EXPECT_EQ(later.exitCode(), 0);
    EXPECT_FALSE(later.readAllStandardError().contains(kShown));
    EXPECT_TRUE(waitForLine(first, "orvanta.playlist: loaded 1 packets, 1 entries"));
}

TEST_F(Program, AutoInCapitalsKeepsTheWindowHiddenUntilALaterLaunchRaisesIt)
{
    Probe program;
    launch(program, {u"/AUTO"_s});
    ASSERT_TRUE(waitForLine(program, "orvanta.startup: ready"));
    Probe later;
    launch(later);
    ASSERT_TRUE(later.waitForFinished());
    EXPECT_EQ(later.exitCode(), 0);
    const QByteArrayList hidden = linesUntil(program, "orvanta.startup: raised by a later launch");
    EXPECT_FALSE(hidden.last().isEmpty());
    EXPECT_FALSE(hidden.contains(kShown));
    EXPECT_TRUE(waitForLine(program, kShown));
}

TEST_F(Program, AutoWithABlankBehindItIsQueuedAndTheWindowShows)
{
    Probe program;
    launch(program, {u"/auto "_s});
    EXPECT_TRUE(waitForLine(program, kShown));
    EXPECT_EQ(folder.value("ftl", "1"), u"/auto");
}

TEST_F(Program, SettingsWithoutABalanceStillGiveAWindow)
{
    set("save", "balance", u"loud"_s);
    Probe program;
    launch(program);
    EXPECT_TRUE(waitForLine(program, kShown));
}

TEST_F(Program, AFolderWhoseNameIsNoTextIsRefused)
{
    Probe program;
    launchWithForeignHome(program);
    EXPECT_EQ(program.nextLine(), "orvanta: ORVANTA_HOME is no path in UTF-8");
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
}

} // namespace orvanta
