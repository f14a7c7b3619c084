// Texts of other programs, by their bytes.
#include "core/foreign_text.h"
#include "core/ini_encoding.h"
#include "core/ini_stored_names.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(ForeignTexts, AreThoseThatAreNotUtf8)
{
    EXPECT_FALSE(isForeignText("plain"));
    EXPECT_FALSE(isForeignText(u"Кино"_s.toUtf8()));
    EXPECT_TRUE(isForeignText("\xca\xe8\xed\xee"));
    EXPECT_TRUE(isForeignText(QByteArray("a\0b", 3)));
}

TEST(ForeignTexts, GoByTheirMark)
{
    EXPECT_EQ(foreignText("\xef\xbb\xbf"
                          "Film",
                          nullptr),
              u"Film");
    EXPECT_EQ(foreignText(QByteArray("\xff\xfe\x1a\x04", 4), nullptr), u"К");
}

TEST(ForeignTexts, WithoutAMarkAreUtf8WhenTheyCanBe)
{
    EXPECT_EQ(foreignText(u"Größe Кино"_s.toUtf8(), CodePage::named(u"windows-1252"_s)),
              u"Größe Кино");
}

TEST(ForeignTexts, OfHighBytesSideBySideAreCyrillicWhateverThePage)
{
    EXPECT_EQ(foreignText("\xca\xe8\xed\xee", CodePage::named(u"windows-1252"_s)), u"Кино");
    EXPECT_EQ(foreignText("\xca\xe8\xed\xee", nullptr), u"Кино");
}

TEST(ForeignTexts, OfHighBytesAmongOthersGoByThePageAndElseAreLatin)
{
    EXPECT_EQ(foreignText("Gr\xf6\x9a", CodePage::named(u"windows-1250"_s)), u"Gröš");
    EXPECT_EQ(foreignText("Gr\xf6n", nullptr), u"Grön");
}

TEST(StoredNames, OfKeysHideWhatTheFormatWouldTakeForSomethingElse)
{
    EXPECT_EQ(storedKey(u"plain; [x]"_s), u"plain; [x]");
    EXPECT_EQ(storedKey(u";note"_s), u"\\3Bnote");
    EXPECT_EQ(storedKey(u"[part"_s), u"\\5Bpart");
    EXPECT_EQ(storedKey(u"\\3bnote"_s), u"\\5C3bnote");
    EXPECT_EQ(storedKey(u"  "_s), u"");
}

TEST(StoredNames, OfSectionsHideBracketsAndTabsAndWhatLooksHidden)
{
    EXPECT_EQ(storedSection(u"a [b; \\c"_s), u"a [b; \\c");
    EXPECT_EQ(storedSection(u"a]b"_s), u"a\\5Db");
    EXPECT_EQ(storedSection(u"a\tb"_s), u"a\\09b");
    EXPECT_EQ(storedSection(u"a\\5db"_s), u"a\\5C5db");
    EXPECT_NE(storedSection(u"a\\5db"_s), storedSection(u"a]b"_s));
}

} // namespace orvanta
