#include "model/editing/time_text.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

TEST(MarkTime, IsReadInEveryWayInWhichPeopleWriteIt)
{
    for (const QString& text : {u"1:04.25"_s, u"64.25"_s, u"000064.25"_s, u"64,25"_s,
                                u" 0:01:04.25 "_s, u"01:04,250"_s}) {
        EXPECT_EQ(markTime(text), 64.25) << text.toStdString();
    }
    EXPECT_EQ(markTime(u"1:02:03"_s), 3723);
    EXPECT_EQ(markTime(u"0"_s), 0);
    EXPECT_EQ(markTime(u"75:00"_s), 4500);
}

TEST(MarkTime, IsNoneOfWhatIsNoTime)
{
    for (const QString& text :
         {u""_s, u"x"_s, u"1:60"_s, u"1:2:3:4"_s, u"-1"_s, u"1e3"_s, u"1:75:00"_s, u"1:"_s,
          u":30"_s, u"0x10"_s, u"1000000"_s, u"99999999999"_s}) {
        EXPECT_EQ(markTime(text), std::nullopt) << text.toStdString();
    }
}

TEST(MarkTime, IsWrittenInHundredths)
{
    EXPECT_EQ(markTimeText(64.25), u"1:04.25");
    EXPECT_EQ(markTimeText(0), u"0:00.00");
    EXPECT_EQ(markTimeText(59.996), u"1:00.00");
    EXPECT_EQ(markTimeText(3723.5), u"1:02:03.50");
    EXPECT_EQ(markTimeText(-3), u"0:00.00");
    EXPECT_EQ(storedTime(64.254), u"000064.25");
}

} // namespace orvanta::test
