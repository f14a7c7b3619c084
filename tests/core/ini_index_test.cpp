// The index that grows with the text finds what one built anew finds.
#include "core/ini_document.h"

#include <gtest/gtest.h>
#include <random>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString randomName(std::mt19937& random, const QString& word)
{
    const QString name = word + QString::number(random() % 40);
    return random() % 2 == 0 ? name : name.toUpper();
}

TEST(IniIndex, AfterManyChangesEqualsOneBuiltAnew)
{
    std::mt19937 random(20010501);
    IniDocument grown("[s1]\r\n; note\r\n\r\n[s2]\r\nk1=0\r\n");
    for (int i = 0; i < 2000; ++i) {
        (void)grown.set(randomName(random, u"s"_s), randomName(random, u"ключ"_s),
                        QString::number(random() % 100000));
    }
    const IniDocument anew(grown.fileBytes());
    for (int s = 0; s < 40; ++s) {
        for (int k = 0; k < 40; ++k) {
            const QString section = u"S%1"_s.arg(s);
            const QString key = u"Ключ%1"_s.arg(k);
            ASSERT_EQ(grown.value(section, key), anew.value(section, key));
        }
    }
}

TEST(IniIndex, FindsKeysInALargeSectionAsInASmallOne)
{
    QByteArray bytes = "[large]\n";
    for (int i = 0; i < 5000; ++i) {
        bytes += "Key" + QByteArray::number(i) + " = " + QByteArray::number(i) + "\nkey" +
                 QByteArray::number(i) + "=later\njunk\n;key=comment\n";
    }
    const IniDocument document(bytes);
    for (int i = 0; i < 5000; i += 13) {
        ASSERT_EQ(document.value(u"LARGE"_s, u"KEY%1"_s.arg(i)), QString::number(i));
    }
    EXPECT_EQ(document.value(u"large"_s, u"junk"_s), QString());
    EXPECT_EQ(document.value(u"large"_s, u";key"_s), QString());
}

TEST(IniIndex, SaysWhetherBytesWereAppended)
{
    using Change = IniDocument::Change;
    IniDocument document("[a]\nx=1\n[b]\ny=2\n");
    EXPECT_EQ(document.set(u"b"_s, u"z"_s, u"3"_s), Change::Appended);
    EXPECT_EQ(document.set(u"c"_s, u"z"_s, u"3"_s), Change::Appended);
    EXPECT_EQ(document.set(u"a"_s, u"z"_s, u"3"_s), Change::Rewritten);
    EXPECT_EQ(document.set(u"a"_s, u"x"_s, u"1"_s), Change::None);
    EXPECT_EQ(document.set(u"c"_s, u"w"_s, u"4"_s), Change::Appended);
    EXPECT_EQ(document.fileBytes(), "[a]\nx=1\nz=3\n[b]\ny=2\nz=3\n[c]\nz=3\nw=4\n");
}

} // namespace orvanta
