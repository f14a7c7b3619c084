#include "app/check_command.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

/// The built program at a terminal without a display, with a home of its own.
struct CheckProgram : testing::Test
{
    int check(const QStringList& arguments)
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString& name :
             {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s, u"ORVANTA_HOME"_s}) {
            variables.remove(name);
        }
        variables.insert(u"XDG_DATA_HOME"_s, home.file(u"data"_s));
        variables.insert(u"XDG_STATE_HOME"_s, home.file(u"state"_s));
        Probe program;
        program.setProcessEnvironment(variables);
        program.startProgram("orvanta", QStringList{u"--check"_s} + arguments);
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        said = program.readAllStandardOutput();
        return program.exitCode();
    }

    SettingsFolder home{QByteArray()};
    QByteArray said;
};

} // namespace

TEST(CheckArguments, NameFilesAndWishes)
{
    EXPECT_FALSE(checkCommand({u"a.vxl"_s, u"--check"_s}).has_value());
    EXPECT_FALSE(checkCommand({u"--check"_s})->isUnderstood);
    EXPECT_FALSE(checkCommand({u"--check"_s, u"--strange"_s, u"a.vxl"_s})->isUnderstood);
    const CheckCommand command = *checkCommand(
        {u"--check"_s, u"--json"_s, u"a.vxl"_s, u"--fix"_s, u"--"_s, u"--relative"_s});
    EXPECT_TRUE(command.isUnderstood);
    EXPECT_TRUE(command.asJson);
    EXPECT_TRUE(command.wishes.fixes);
    EXPECT_FALSE(command.wishes.makesRelative);
    EXPECT_EQ(command.filesAndFolders, (QStringList{u"a.vxl"_s, u"--relative"_s}));
}

TEST_F(CheckProgram, SaysLineByLineWhatIsThereAndCreatesNothing)
{
    const QString clip = home.write(u"B.avi"_s, "x");
    const QString packet = home.write(
        u"p.vxl"_s, "[main]\nfiles=2\n[file1]\npath=C:\\Old\\b.avi\n[file2]\npath=c.avi\n");
    EXPECT_EQ(check({packet}), 1);
    EXPECT_EQ(said, (packet + u": clip 1: found elsewhere: C:\\Old\\b.avi -> "_s + clip + u'\n' +
                     packet + u": clip 2: missing: c.avi\n"_s)
                        .toUtf8());
    EXPECT_FALSE(QFile::exists(home.file(u"data"_s)));
    EXPECT_FALSE(QFile::exists(home.file(u"state"_s)));
}

TEST_F(CheckProgram, SpeaksTheLanguageOfTheSettings)
{
    QDir(home.path()).mkpath(u"data/orvanta"_s);
    home.write(u"data/orvanta/orvanta.ini"_s, "[main]\nlanguage=2\n");
    const QString packet = home.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=c.avi\n");
    EXPECT_EQ(check({packet}), 1);
    EXPECT_EQ(said, (packet + u": клип 1: нет файла: c.avi\n"_s).toUtf8());
}

TEST_F(CheckProgram, EndsWithTheWorstThatItFound)
{
    home.write(u"a.avi"_s, "x");
    const QString sound = home.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    EXPECT_EQ(check({sound}), 0);
    EXPECT_EQ(check({sound, home.file(u"absent.vxl"_s)}), 2);
    EXPECT_EQ(check({home.file(u"a.avi"_s), home.file(u"absent.vxl"_s)}), 3);
    EXPECT_EQ(check({}), 2);
    EXPECT_EQ(check({u"--strange"_s, sound}), 2);
}

TEST_F(CheckProgram, PrintsForPrograms)
{
    home.write(u"a.avi"_s, "x");
    const QString packet = home.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=a.avi\n");
    EXPECT_EQ(check({u"--json"_s, packet}), 0);
    const QJsonObject document = QJsonDocument::fromJson(said).array().at(0).toObject();
    EXPECT_EQ(document[u"document"].toString(), packet);
    EXPECT_EQ(document[u"result"].toString(), u"all found");
    const QJsonObject text = document[u"texts"].toArray().at(0).toObject();
    EXPECT_EQ(text[u"found"].toString(), u"as written");
    EXPECT_EQ(text[u"file"].toString(), home.file(u"a.avi"_s));
}

TEST_F(CheckProgram, KeepsAnEarlierVersionOfWhatItFixes)
{
    home.write(u"B.avi"_s, "x");
    const QString packet = home.write(u"p.vxl"_s, "[main]\nfiles=1\n[file1]\npath=C:\\b.avi\n");
    EXPECT_EQ(check({u"--fix"_s, u"--relative"_s, packet}), 0);
    EXPECT_TRUE(said.endsWith("written anew\n"));
    EXPECT_EQ(ReadIni(u"file1"_s, u"path"_s, packet), u"B.avi");
    EXPECT_TRUE(QDir(home.file(u"state/orvanta/versions"_s)).exists());
}

} // namespace orvanta::test
