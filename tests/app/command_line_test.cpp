#include "app/command_line.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QRegularExpression>

#include <array>
#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// A folder with "a.avi", "b c.vxl" and "sub" in it as the current folder.
struct CommandLine : testing::Test
{
    CommandLine()
    {
        folder.write(u"a.avi"_s, "x");
        folder.write(u"b c.vxl"_s, "x");
        QDir(folder.path()).mkdir(u"sub"_s);
        QDir::setCurrent(folder.path());
    }
    ~CommandLine() override { QDir::setCurrent(m_before); }

    SettingsFolder folder{QByteArray()};

private:
    QString m_before = QDir::currentPath();
};

std::optional<QString> answer(const QStringList& arguments,
                              TextLanguage language = TextLanguage::English)
{
    return answerForTerminal(arguments, [language] { return language; });
}

} // namespace

TEST_F(CommandLine, ArgumentsAreJoinedWithOneBlank)
{
    EXPECT_EQ(commandLine({}), QString());
    EXPECT_EQ(commandLine({u"a"_s}), u"a");
    EXPECT_EQ(commandLine({u"a"_s, u"b"_s}), u"a b");
}

TEST_F(CommandLine, AutoInAnyCaseIsTheSwitchAndQueuesNothing)
{
    for (const QString& line : {u"/auto"_s, u"/AUTO"_s, u"/Auto"_s}) {
        EXPECT_TRUE(isAutoStart(line));
        EXPECT_TRUE(linesToQueue({line}).isEmpty());
    }
}

TEST_F(CommandLine, ContinueIsQueuedAsItIsAlsoWhereAFileHasThatName)
{
    folder.write(u"--continue"_s, "x");
    EXPECT_EQ(linesToQueue({u"--continue"_s}), QStringList(u"--continue"_s));
    EXPECT_EQ(linesToQueue({u"./--continue"_s}), QStringList(folder.file(u"--continue"_s)));
    EXPECT_FALSE(answer({u"--continue"_s}).has_value());
    EXPECT_TRUE(answer({u"--help"_s})->contains(u"--continue"));
}

TEST_F(CommandLine, AutoWithABlankBehindItIsACommandLineLikeAnyOther)
{
    EXPECT_FALSE(isAutoStart(u"/auto "_s));
    EXPECT_FALSE(isAutoStart(u"/auto x"_s));
    EXPECT_EQ(linesToQueue({u"/auto "_s}), QStringList(u"/auto "_s));
}

TEST_F(CommandLine, FilesAreQueuedByTheirPathsAndAnythingElseAsItIs)
{
    struct Row
    {
        const char* rule;
        QStringList arguments;
        QStringList lines;
    };
    const QString a = folder.file(u"a.avi"_s);
    const QString bc = folder.file(u"b c.vxl"_s);
    const Row rows[] = {
        {"no line queues nothing", {}, {}},
        {"an empty line queues nothing", {u""_s}, {}},
        {"a path that exists is made absolute", {u"a.avi"_s}, {a}},
        {"also one with a dot", {u"./a.avi"_s}, {a}},
        {"also one by way of another folder", {u"sub/../a.avi"_s}, {a}},
        {"an absolute one stays", {a}, {a}},
        {"an unquoted path with a blank is joined again", {u"b"_s, u"c.vxl"_s}, {bc}},
        {"several existing files are one entry each", {u"a.avi"_s, u"b c.vxl"_s}, {a, bc}},
        {"several arguments of which one is no file are one entry",
         {u"a.avi"_s, u"missing.avi"_s},
         {u"a.avi missing.avi"_s}},
        {"a file address becomes its path",
         {u"file:///clips/%D0%AF%201.avi"_s},
         {u"/clips/Я 1.avi"_s}},
        {"also one of this machine", {u"file://localhost/a.avi"_s}, {u"/a.avi"_s}},
        {"also one in capitals", {u"FILE:/a.avi"_s}, {u"/a.avi"_s}},
        {"several file addresses are one entry each",
         {u"file://"_s + a, u"file://"_s + folder.file(u"b%20c.vxl"_s)},
         {a, bc}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(linesToQueue(row.arguments), row.lines) << row.rule;
    }
    for (const QString& line : {u"missing.avi"_s, u"http://host/a.avi"_s, u"C:\\Clips\\a.avi"_s,
                                u"file://host/a.avi"_s, u"--strange"_s, u"\"quoted\""_s}) {
        EXPECT_EQ(linesToQueue({line}), QStringList(line)) << line.toStdString();
    }
}

TEST_F(CommandLine, UpwardsFromALinkedFolderStaysTheSameFile)
{
    const SettingsFolder elsewhere{QByteArray()};
    QDir(elsewhere.path()).mkdir(u"deep"_s);
    const QString clip = elsewhere.write(u"c.avi"_s, "x");
    ASSERT_TRUE(QFile::link(elsewhere.file(u"deep"_s), folder.file(u"link"_s)));
    const QStringList lines = linesToQueue({u"link/../c.avi"_s});
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(QFileInfo(lines.first()).canonicalFilePath(), QFileInfo(clip).canonicalFilePath());
}

TEST_F(CommandLine, TheFolderSwitchKeepsItsFormWithAnAbsoluteFolder)
{
    EXPECT_EQ(linesToQueue({u"/f/no/such"_s}), QStringList(u"/f/no/such"_s));
    EXPECT_EQ(linesToQueue({u"/F"_s + folder.file(u"sub"_s)}),
              QStringList(u"/F"_s + folder.file(u"sub"_s)));
    EXPECT_EQ(linesToQueue({u"/fsub"_s}), QStringList(u"/f"_s + folder.file(u"sub"_s)));
}

TEST_F(CommandLine, ANameWithALineBreakIsRefused)
{
    EXPECT_TRUE(linesToQueue({u"a\nnum=99.avi"_s}).isEmpty());
    EXPECT_TRUE(linesToQueue({u"a\rb"_s}).isEmpty());
    folder.write(u"d\ne.avi"_s, "x");
    EXPECT_EQ(linesToQueue({u"a.avi"_s, u"d\ne.avi"_s}), QStringList(folder.file(u"a.avi"_s)));
}

TEST_F(CommandLine, ANameThatNoTextCanHoldIsRefused)
{
    const std::array arguments = {"orvanta", "a.avi", "b\xff.avi", "\xd0\xaf.avi"};
    EXPECT_EQ(argumentTexts(static_cast<int>(arguments.size()), arguments.data()),
              QStringList({u"a.avi"_s, u"Я.avi"_s}));
}

TEST_F(CommandLine, HelpAndVersionAreAnsweredWhenTheyStandAlone)
{
    EXPECT_EQ(answer({u"--version"_s}), u"Orvanta 3.3\n");
    ASSERT_TRUE(answer({u"--help"_s}).has_value());
    EXPECT_TRUE(answer({u"--help"_s})->contains(u"/auto"));
    EXPECT_EQ(answer({}), std::nullopt);
    EXPECT_EQ(answer({u"a.avi"_s}), std::nullopt);
    EXPECT_EQ(answer({u"--help"_s, u"a.avi"_s}), std::nullopt);
}

TEST_F(CommandLine, HelpNamesTheSameOptionsInBothLanguages)
{
    const QString english = answer({u"--help"_s}).value_or(QString());
    const QString russian = answer({u"--help"_s}, TextLanguage::Russian).value_or(QString());
    EXPECT_TRUE(english.startsWith(u"Usage: orvanta")) << qPrintable(english);
    EXPECT_TRUE(russian.startsWith(u"Вызов: orvanta")) << qPrintable(russian);
    static const QRegularExpression option(u"--[a-z]+|/f|/auto|\\$\\w+|~\\S+[^.\\s]|\\.vx[lg]"_s);
    const auto optionsOf = [](const QString& text) {
        QStringList options;
        for (const QRegularExpressionMatch& match : option.globalMatch(text)) {
            options.append(match.captured());
        }
        options.sort();
        return options;
    };
    EXPECT_EQ(optionsOf(russian), optionsOf(english));
}

TEST_F(CommandLine, OnlyHelpAsksForTheLanguage)
{
    const auto asked = []() -> TextLanguage {
        ADD_FAILURE() << "nobody needs to read settings for this";
        return TextLanguage::English;
    };
    EXPECT_TRUE(answerForTerminal({u"--version"_s}, asked).has_value());
    EXPECT_FALSE(answerForTerminal({u"a.avi"_s}, asked).has_value());
}

} // namespace orvanta
