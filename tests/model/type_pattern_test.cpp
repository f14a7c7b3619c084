#include "model/type_pattern.h"
#include "tests/support/error_of.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(TypePattern, JoinsTheTypesInTheirOrder)
{
    const SettingsFolder folder("[types]\nnum=3\nfile0=avi\nfile1=mpg\nfile2=wav\n");
    EXPECT_EQ(typePattern(folder.ini()), u"*.avi;*.mpg;*.wav");
}

TEST(TypePattern, HoldsTheFirstTypeAloneWithOneType)
{
    const SettingsFolder folder("[types]\nnum=1\nfile0=avi\nfile1=mpg\n");
    EXPECT_EQ(typePattern(folder.ini()), u"*.avi");
}

TEST(TypePattern, HoldsTheFirstTypeEvenWithoutTypes)
{
    const SettingsFolder folder("[types]\nnum=0\nfile0=avi\n");
    EXPECT_EQ(typePattern(folder.ini()), u"*.avi");
}

TEST(TypePattern, AnEmptyTypeIsAStarAndADot)
{
    const SettingsFolder folder("[types]\nnum=2\nfile0=avi\nfile1=\n");
    EXPECT_EQ(typePattern(folder.ini()), u"*.avi;*.");
}

TEST(TypePattern, ACountThatIsAbsentOrNoNumberIsATypeMismatch)
{
    for (const QByteArray count : {"", "num=\n", "num=three\n"}) {
        const SettingsFolder folder("[types]\nfile0=avi\n" + count);
        EXPECT_EQ(errorOf([&] { (void)typePattern(folder.ini()); }), 13);
    }
}

} // namespace orvanta
