#include "core/ini.h"
#include "tests/core/test_folder.h"
#include "tests/support/log_capture.h"

namespace orvanta {

using namespace Qt::StringLiterals;
using test::UserLocale;

/// "[s]", "k=Привет" in windows-1251.
static const QByteArray kHello1251 = "[s]\r\nk=\xCF\xF0\xE8\xE2\xE5\xF2\r\n";

class IniTexts : public test::FolderTest
{
protected:
    void TearDown() override { setLegacyCodePage({}); }

    static QByteArray utf16(const QString& text)
    {
        return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
    }
};

TEST_F(IniTexts, NewFilesAreUtf8WithoutAMark)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"s"_s, u"k"_s, u"Привет, 世界"_s, file);
    EXPECT_EQ(bytesOf(file), u"[s]\r\nk=Привет, 世界\r\n"_s.toUtf8());
}

TEST_F(IniTexts, OldFilesAreReadInTheCodePageOfTheUsersLocale)
{
    for (const QString& locale : {u"ru_RU"_s, u"uk_UA"_s, u"be_BY"_s, u"bg_BG"_s, u"sr_RS"_s}) {
        const UserLocale user(locale);
        setLegacyCodePage({});
        EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, put(u"a.ini"_s, kHello1251)), u"Привет"_s)
            << locale.toStdString();
    }
    const UserLocale german(u"de_DE"_s);
    setLegacyCodePage({});
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s,
                      put(u"a.ini"_s, "[s]\r\nk=Stra\xDF"
                                      "e \x80\r\n")),
              u"Straße €"_s);
}

TEST_F(IniTexts, ANamedCodePageGoesBeforeTheLocale)
{
    const UserLocale german(u"de_DE"_s);
    const QString file = put(u"a.ini"_s, kHello1251);
    setLegacyCodePage(u"windows-1251"_s);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"Привет"_s);
    setLegacyCodePage(u"KOI8-R"_s);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, put(u"b.ini"_s, "[s]\r\nk=\xF0\xD2\xC9\r\n")), u"При"_s);
}

TEST_F(IniTexts, WhatIsNo8BitCodePageIsLoggedAndPassedOver)
{
    const UserLocale russian(u"ru_RU"_s);
    const test::LogCapture log("orvanta.errors");
    for (const QString& name : {u"nonsense"_s, u"UTF-8"_s, u"UTF-16LE"_s, u"SHIFT_JIS"_s}) {
        setLegacyCodePage(name);
        EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, put(u"a.ini"_s, kHello1251)), u"Привет"_s)
            << name.toStdString();
    }
    EXPECT_EQ(log.lines().size(), 4);
}

TEST_F(IniTexts, NamesInACodePageAreComparedWithoutCase)
{
    setLegacyCodePage(u"windows-1251"_s);
    const QString file = put(u"a.ini"_s, "[\xCF\xEE\xE7]\r\n\xD3\xF0\xEE\xEA=1\r\n");
    EXPECT_EQ(ReadIni(u"ПОЗ"_s, u"уРОК"_s, file), u"1"_s);
}

TEST_F(IniTexts, AWriteKeepsTheEncodingAndWhatItCannotRead)
{
    struct Row
    {
        const char* rule;
        QByteArray before;
        IniChange change;
        QByteArray after;
    };
    const QByteArray begin = utf16(u"\uFEFF; "_s + QChar(0xD800) + u"\r\n[s]\r\nk="_s);
    const Row rows[] = {
        {"a text that fits keeps the code page",
         kHello1251,
         {u"s"_s, u"l"_s, u"да"_s},
         kHello1251 + "l=\xE4\xE0\r\n"},
        {"undefined bytes survive a write elsewhere",
         "[s]\nk=\x98\xCF\nl=1\n",
         {u"s"_s, u"l"_s, u"2"_s},
         "[s]\nk=\x98\xCF\nl=2\n"},
        {"the mark of UTF-8 stays",
         "\xEF\xBB\xBF[s]\nk=1\n",
         {u"S"_s, u"k"_s, u"2"_s},
         "\xEF\xBB\xBF[s]\nk=2\n"},
        {"broken UTF-16 elsewhere survives a write",
         begin + utf16(u"1\r\n"_s),
         {u"s"_s, u"k"_s, u"22"_s},
         begin + utf16(u"22\r\n"_s)},
    };
    setLegacyCodePage(u"windows-1251"_s);
    for (const Row& row : rows) {
        const QString file = put(u"a.ini"_s, row.before);
        WriteIni(row.change.section, row.change.key, row.change.value, file);
        EXPECT_EQ(bytesOf(file), row.after) << row.rule;
    }
}

TEST_F(IniTexts, ATextThatDoesNotFitTurnsTheFileIntoUtf8WithNothingLost)
{
    setLegacyCodePage(u"windows-1251"_s);
    const QString file = put(u"a.ini"_s, "; \x98 undefined\r\n" + kHello1251);
    WriteIni(u"s"_s, u"l"_s, u"世界"_s, file);
    EXPECT_EQ(bytesOf(file), u"; \u0098 undefined\r\n[s]\r\nk=Привет\r\nl=世界\r\n"_s.toUtf8());
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"Привет"_s);
}

TEST_F(IniTexts, Utf16IsWrittenBackAsUtf16)
{
    const QString file =
        put(u"a.ini"_s, utf16(u"\uFEFF; \U0001F600 примечание\r\n[s]\r\nk=Привет\r\nl=1\r\n"_s));
    WriteIni(u"s"_s, u"k"_s, u"да \U0001F600"_s, file);
    WriteIni(u"t"_s, u"n"_s, u"новое"_s, file);
    EXPECT_EQ(bytesOf(file), utf16(u"\uFEFF; \U0001F600 примечание\r\n[s]\r\nk=да \U0001F600\r\n"
                                   u"l=1\r\n[t]\r\nn=новое\r\n"_s));
    EXPECT_EQ(ReadIni(u"t"_s, u"n"_s, file), u"новое"_s);
}

TEST_F(IniTexts, AValueThatBeginsWithAMarkKeepsIt)
{
    const QString file = path(u"a.ini"_s);
    WriteIni(u"s"_s, u"k"_s, u"\uFEFFtext"_s, file);
    EXPECT_EQ(ReadIni(u"s"_s, u"k"_s, file), u"\uFEFFtext"_s);
}

TEST_F(IniTexts, AMarkThatStandsTwiceInUtf16ShiftsNothing)
{
    const QString file = put(u"a.ini"_s, utf16(u"\uFEFF\uFEFF; note\r\n[s]\r\nk=1\r\nl=2\r\n"_s));
    WriteIni(u"s"_s, u"k"_s, u"long"_s, file);
    EXPECT_EQ(bytesOf(file), utf16(u"\uFEFF\uFEFF; note\r\n[s]\r\nk=long\r\nl=2\r\n"_s));
}

} // namespace orvanta
