#include "tests/architecture/source_files.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static constexpr qsizetype kMostLines = 500;

TEST(SourceFiles, IncludeLinesAreReadWithTheirMarks)
{
    const QList<Include> includes =
        includesOf(u"// #include <QNo>\n#include \"core/ini.h\"\n  #  include <QString>\n"_s);
    ASSERT_EQ(includes.size(), 2);
    EXPECT_EQ(includes[0].name, u"core/ini.h"_s);
    EXPECT_TRUE(includes[0].isQuoted);
    EXPECT_EQ(includes[1].name, u"QString"_s);
    EXPECT_FALSE(includes[1].isQuoted);
}

TEST(SourceFiles, NoneIsLongerThanFiveHundredLines)
{
    const QStringList sources = projectSources();
    ASSERT_GT(sources.size(), 50);
    for (const QString& source : sources) {
        EXPECT_LE(textOfSource(source).count(u'\n'), kMostLines) << source.toStdString();
    }
}

} // namespace orvanta::test
