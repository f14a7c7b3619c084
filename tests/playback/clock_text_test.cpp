// Times as a clock shows them.
#include "playback/clock_text.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <limits>

using namespace orvanta;
using namespace Qt::StringLiterals;

TEST(ClockText, HasMinutesAndTwoDigitsOfSeconds)
{
    EXPECT_EQ(clockText(0), u"0:00"_s);
    EXPECT_EQ(clockText(64.99), u"1:04"_s);
    EXPECT_EQ(clockText(4500), u"75:00"_s);
}

TEST(ClockText, HasTenthsWhereTheyAreWanted)
{
    EXPECT_EQ(clockTextWithTenths(64.2), u"1:04"_s + QLocale().decimalPoint() + u'2');
    EXPECT_EQ(clockTextWithTenths(59.99), u"0:59"_s + QLocale().decimalPoint() + u'9');
}

TEST(ClockText, HasHundredthsWhereTheyAreWanted)
{
    EXPECT_EQ(clockTextWithHundredths(64.25), u"1:04"_s + QLocale().decimalPoint() + u"25"_s);
    EXPECT_EQ(clockTextWithHundredths(64.07), u"1:04"_s + QLocale().decimalPoint() + u"07"_s);
    EXPECT_EQ(clockTextWithHundredths(-1), u"0:00"_s + QLocale().decimalPoint() + u"00"_s);
}

TEST(ClockText, TakesWhatIsNoTimeForZero)
{
    EXPECT_EQ(clockText(-3), u"0:00"_s);
    EXPECT_EQ(clockText(std::numeric_limits<double>::quiet_NaN()), u"0:00"_s);
    EXPECT_EQ(clockText(std::numeric_limits<double>::infinity()), u"0:00"_s);
}
