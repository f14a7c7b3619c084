#include "core/ini.h"
#include "tests/core/test_folder.h"
#include "tests/support/log_capture.h"

#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;

class ReadingIni : public test::FolderTest
{};

TEST_F(ReadingIni, ValuesLoseOuterBlanks)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"main"_s, u"text"_s, u" 12 "_s, file);
    EXPECT_EQ(ReadIni(u"main"_s, u"text"_s, file), u"12"_s);
}

TEST_F(ReadingIni, AnEmptyValueAndAnAbsentKeyBothGiveTheDefault)
{
    const QString file = put(u"a.ini"_s, "[main]\r\nempty=\r\nblank=   \r\n");
    EXPECT_EQ(ReadIni(u"main"_s, u"empty"_s, file, u"x"_s), u"x"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"blank"_s, file, u"x"_s), u"x"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"absent"_s, file, u"x"_s), u"x"_s);
    EXPECT_EQ(ReadIni(u"absent"_s, u"empty"_s, file, u"0"_s), u"0"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"absent"_s, file), QString());
}

TEST_F(ReadingIni, WhatIsNoReadableFileGivesTheDefault)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    for (const QString& file : {path(u"missing.ini"_s), path(u"no/folder.ini"_s), path(u"."_s),
                                path(u"pipe"_s), u"/dev/null"_s, QString()}) {
        EXPECT_EQ(ReadIni(u"main"_s, u"language"_s, file, u"0"_s), u"0"_s) << file.toStdString();
    }
}

TEST_F(ReadingIni, AnUnreadableFileIsLogged)
{
    const test::LogCapture log("orvanta.errors");
    (void)ReadIni(u"main"_s, u"language"_s, path(u"."_s));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().constFirst().startsWith(u"cannot read "));
}

TEST_F(ReadingIni, QuotesBlanksAndEqualsSignsAreReadAsTheyAlwaysWere)
{
    struct Row
    {
        const char* rule;
        QByteArray bytes;
        QString key;
        QString value;
    };
    const QByteArray equals = "[s]\r\nA = b=c = 7\r\na=bcd=8\r\n";
    const Row rows[] = {
        {"a value ends at its first NUL", QByteArray("[s]\nk=one \0two\n", 15), u"k"_s, u"one"_s},
        {"blanks in quotes are only in the raw value", "[s]\nk=\"  a  \"\n", u"k"_s, u"a"_s},
        {"quoted blanks are a value that reads as empty", "[s]\nk=\"  \"\n", u"k"_s, QString()},
        {"a lone quote is a value", "[s]\nk=\"\n", u"k"_s, u"\""_s},
        {"a key with equals signs is found without case", equals, u"a = B=C"_s, u"7"_s},
        {"a key with equals signs is found", equals, u"a=bcd"_s, u"8"_s},
        {"a part of a key is none", equals, u"a=bc"_s, u"default"_s},
    };
    for (const Row& row : rows) {
        const QString file = put(u"a.ini"_s, row.bytes);
        EXPECT_EQ(ReadIni(u"s"_s, row.key, file, u"default"_s), row.value) << row.rule;
    }
    EXPECT_EQ(readIniRaw(u"s"_s, u"k"_s, put(u"a.ini"_s, "[s]\nk=\"  a  \"\n")), u"  a  "_s);
}

TEST_F(ReadingIni, TheLimitCountsCharactersWithoutTheQuotes)
{
    const QString astral = QString(u"\U0001F600"_s).repeated(3000);
    const QString file = put(u"a.ini"_s, "[s]\nk=\"" + astral.toUtf8() + "\"\n");
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), QString(u"\U0001F600"_s).repeated(2047));
}

TEST_F(ReadingIni, LineBreaksInNamesReadAsTheyAreWritten)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"pos"_s, u"two\nlines"_s, u"12.5"_s, file);
    EXPECT_EQ(ReadIni(u"pos"_s, u"two\nlines"_s, file), u"12.5"_s);
    EXPECT_EQ(ReadIni(u"pos"_s, u"two lines"_s, file), u"12.5"_s);
}

TEST_F(ReadingIni, AKeyTextFindsItsValueWhateverBlankStandsBehindIt)
{
    const QString file = path(u"a.ini"_s);
    for (const QString& blank : {u"\t"_s, u"\v"_s, u"\r"_s, u"\n"_s, u"\r\n"_s, u" \t "_s}) {
        for (const QString& name : {u"intro"_s, u"Урок"_s}) {
            const QString key = name + blank + QString::number(blank.front().unicode());
            WriteIni(u"pos"_s, key + blank, u"12.5"_s, file);
            EXPECT_EQ(ReadIni(u"pos"_s, key + blank, file), u"12.5"_s) << key.toStdString();
        }
    }
}

TEST_F(ReadingIni, ASecondWriteWithATabBehindTheKeyChangesTheSameLine)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"pos"_s, u"intro\t"_s, u"1"_s, file);
    WriteIni(u"pos"_s, u"intro\t"_s, u"2"_s, file);
    EXPECT_EQ(bytesOf(path(u"a.ini"_s)).count("intro"), 1);
}

TEST_F(ReadingIni, UnicodeNamesAreComparedWithoutCase)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"ПОЗИЦИИ"_s, u"Élan Ω"_s, u"1"_s, file);
    WriteIni(u"позиции"_s, u"éLAN ω"_s, u"2"_s, file);
    EXPECT_EQ(ReadIni(u"Позиции"_s, u"ÉLAN ω"_s, file), u"2"_s);
}

TEST_F(ReadingIni, ASnapshotStaysAsItWasWhenTheFileChanges)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"s"_s, u"k"_s, u"before"_s, file);
    const IniSnapshot snapshot(file);
    WriteIni(u"s"_s, u"k"_s, u"after"_s, file);
    WriteIni(u"s"_s, u"new"_s, u"1"_s, file);
    EXPECT_EQ(snapshot.read(u"s"_s, u"k"_s), u"before"_s);
    EXPECT_EQ(snapshot.read(u"s"_s, u"new"_s, u"none"_s), u"none"_s);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"after"_s);
}

TEST_F(ReadingIni, MoreFilesThanAreRememberedReadRight)
{
    for (int i = 0; i < 12; ++i) {
        WriteIni(u"s"_s, u"k"_s, QString::number(i), path(QString::number(i)));
    }
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, path(QString::number(i))), QString::number(i));
    }
}

} // namespace orvanta
