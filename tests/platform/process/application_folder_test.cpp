#include "platform/process/application_folder.h"
#include "tests/support/error_of.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// Sets an environment variable for one test.
class Variable
{
public:
    Variable(const char* name, const QString& value)
        : m_name(name),
          m_before(qgetenv(name))
    {
        qputenv(name, value.toUtf8());
    }
    ~Variable() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
    QByteArray m_before;
};

QStringList installedTypes(const SettingsFolder& folder)
{
    QStringList types;
    const int count = folder.value("types", "num").toInt();
    for (int i = 0; i < count; ++i) {
        types.append(folder.value("types", QByteArray("file" + QByteArray::number(i)).constData()));
    }
    return types;
}

} // namespace

TEST(ApplicationFolder, TheVariableDecides)
{
    const SettingsFolder folder{QByteArray()};
    const Variable home("ORVANTA_HOME", folder.file(u"new/home"_s));
    EXPECT_EQ(applicationFolder(), folder.file(u"new/home"_s));
    EXPECT_TRUE(QFileInfo(folder.file(u"new/home/orvanta.ini"_s)).isFile());
}

TEST(ApplicationFolder, SettingsThatCannotBeMadeAreAnErrorAtOnce)
{
    const Variable home("ORVANTA_HOME", u"/proc/nowhere"_s);
    EXPECT_EQ(errorOf([] { requireSettings(applicationFolder()); }), 76);
}

TEST(ApplicationFolder, WhatIsNoFileInThePlaceOfTheSettingsIsAnAccessError)
{
    const SettingsFolder folder{QByteArray()};
    QDir(folder.path()).mkdir(u"orvanta.ini"_s);
    const Variable home("ORVANTA_HOME", folder.path());
    EXPECT_EQ(errorOf([] { requireSettings(applicationFolder()); }), 75);
}

TEST(ApplicationFolder, ARelativeVariableIsMadeAbsolute)
{
    const SettingsFolder folder{QByteArray()};
    const Variable home("ORVANTA_HOME", QDir::current().relativeFilePath(folder.path()));
    EXPECT_EQ(applicationFolder(), folder.path());
}

TEST(ApplicationFolder, WithoutAVariableItIsAFolderOfTheUsersData)
{
    const SettingsFolder folder{QByteArray()};
    const Variable home("ORVANTA_HOME", {});
    const Variable data("XDG_DATA_HOME", folder.path());
    EXPECT_EQ(applicationFolder(), folder.file(u"orvanta"_s));
    EXPECT_TRUE(QFileInfo(folder.file(u"orvanta/orvanta.ini"_s)).isFile());
}

TEST(ApplicationFolder, NewSettingsHoldTheQueueTheTypesAndNoLanguage)
{
    const SettingsFolder folder{QByteArray()};
    installDefaultSettings(folder.path());
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
    EXPECT_EQ(folder.value("save", "volume"), u"0");
    EXPECT_EQ(folder.value("save", "balance"), u"50");
    EXPECT_EQ(folder.value("add-ins", "num"), u"2");
    EXPECT_EQ(folder.value("add-ins", "namer2"), u"&Экспорт...");
    EXPECT_EQ(folder.value("add-ins", "path1"), u"orvanta-import");
    EXPECT_EQ(folder.value("main", "language"), QString());
    EXPECT_EQ(installedTypes(folder).join(u' '),
              u"avi mpg mpeg mp4 m4v mkv webm mov wmv flv ogv ts mp3 wav ogg oga opus flac m4a aac "
              "wma");
}

TEST(ApplicationFolder, NewSettingsHaveEveryOption)
{
    const SettingsFolder folder{QByteArray()};
    installDefaultSettings(folder.path());
    for (const char* option : {"as", "agnc", "agnp", "acp", "ar", "si", "nc", "r", "ws"}) {
        const QString value = folder.value("options", option);
        EXPECT_TRUE(value == u"0" || value == u"1") << option;
    }
}

TEST(ApplicationFolder, NewSettingsHaveTheLineEndsOfAllNewFiles)
{
    const SettingsFolder folder{QByteArray()};
    installDefaultSettings(folder.path());
    const QByteArray bytes = folder.bytes(u"orvanta.ini"_s);
    EXPECT_GT(bytes.count("\r\n"), 30);
    EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
}

TEST(ApplicationFolder, ExistingSettingsAreLeftAlone)
{
    const SettingsFolder folder("[main]\nlanguage=2\n");
    installDefaultSettings(folder.path());
    EXPECT_EQ(folder.bytes(u"orvanta.ini"_s), "[main]\nlanguage=2\n");
}

TEST(ApplicationFolder, InstallingLeavesNothingElseBehind)
{
    const SettingsFolder folder{QByteArray()};
    installDefaultSettings(folder.path());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList(u"orvanta.ini"_s));
}

TEST(InstalledFile, TheUsersOwnFileComesFirst)
{
    const SettingsFolder folder;
    folder.write(u"help_eng.htm"_s, "mine");
    EXPECT_EQ(installedFile(folder.path(), u"\\help_eng.htm"_s), folder.file(u"help_eng.htm"_s));
}

TEST(InstalledFile, AFileThatIsNowhereIsExpectedInTheUsersFolder)
{
    const SettingsFolder folder;
    EXPECT_EQ(installedFile(folder.path(), u"\\no such file"_s), folder.file(u"no such file"_s));
}

} // namespace orvanta
