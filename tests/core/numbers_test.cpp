#include "core/numbers.h"
#include "tests/core/test_folder.h"
#include "tests/support/error_of.h"

#include <limits>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;
using test::UserLocale;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(Pictures, UseTheUsersDecimalMark)
{
    const UserLocale german(u"de_DE"_s);
    EXPECT_EQ(userDecimalMark(), u',');
    EXPECT_EQ(formatPicture(12.5, kBrakePicture), u"000012,50"_s);
    EXPECT_EQ(formatPicture(12.5, kBrakePicture, u'.'), u"000012.50"_s);
}

TEST(Pictures, RoundTheFifteenDigitsHalfAwayFromZero)
{
    EXPECT_EQ(formatPicture(1.005, kDurationPicture, u'.'), u"1.01"_s);
    EXPECT_EQ(formatPicture(-1.005, kDurationPicture, u'.'), u"-1.01"_s);
    EXPECT_EQ(formatPicture(0.9995, kPositionPicture, u'.'), u"1.000"_s);
}

TEST(Pictures, ZeroHasNoSign)
{
    EXPECT_EQ(formatPicture(-0.0, kPositionPicture, u'.'), u"0.000"_s);
    EXPECT_EQ(formatPicture(-0.0001, kPositionPicture, u'.'), u"0.000"_s);
}

TEST(Pictures, LargeNumbersPrintInFull)
{
    EXPECT_EQ(formatPicture(1e20, kBrakePicture, u'.'), u"100000000000000000000.00"_s);
}

TEST(Pictures, WhatIsNoFiniteNumberOverflows)
{
    EXPECT_EQ(errorOf([] { (void)formatPicture(kInfinity, kBrakePicture, u'.'); }), 6);
    EXPECT_EQ(errorOf([] { (void)decimalText(kNoNumber); }), 6);
}

TEST(RoundToInt16, RoundsHalfToEven)
{
    EXPECT_EQ(roundToInt16(0.5).value(), 0);
    EXPECT_EQ(roundToInt16(1.5).value(), 2);
    EXPECT_EQ(roundToInt16(-2.5).value(), -2);
}

TEST(RoundToInt16, OverflowsOutsideSixteenBits)
{
    for (const double value : {32767.5, -32768.6, 1e300, kInfinity, -kInfinity, kNoNumber}) {
        EXPECT_EQ(errorOf([&] { (void)roundToInt16(value); }), 6) << value;
    }
}

TEST(DecimalText, TheFifteenthDigitRoundsHalfAwayFromZero)
{
    EXPECT_EQ(decimalText(123456789012344.5), u"123456789012345"_s);
    EXPECT_EQ(decimalText(-123456789012344.5), u"-123456789012345"_s);
    EXPECT_EQ(decimalText(0.1 + 0.2), u"0.3"_s);
    EXPECT_EQ(decimalText(0.99999999999999999), u"1"_s);
    EXPECT_EQ(decimalText(std::numeric_limits<double>::max()), u"1.79769313486232E+308"_s);
    EXPECT_EQ(decimalText(std::numeric_limits<double>::denorm_min()), u"4.94065645841247E-324"_s);
}

TEST(DecimalText, ReadsBackTheSame)
{
    const UserLocale russian(u"ru_RU"_s);
    for (const double value : {0.0, 12.5, -2034.0, 1e-5, 1e16, 1.23456789012345e-7, 0.1}) {
        EXPECT_EQ(decimalValue(decimalText(value)), value) << decimalText(value).toStdString();
    }
}

struct DecimalRow
{
    QString text;
    double value;
};

TEST(DecimalValue, OneMarkIsTheDecimalMarkWhateverTheLocale)
{
    const std::vector<DecimalRow> rows = {
        {u"12.5"_s, 12.5},   {u"12,5"_s, 12.5},      {u"000012,50"_s, 12.5}, {u" 7 "_s, 7},
        {u"-2,25"_s, -2.25}, {u"1,234"_s, 1.234},    {u".5"_s, 0.5},         {u"5."_s, 5},
        {u"+3"_s, 3},        {u"1.5E-05"_s, 1.5e-5}, {u"1e3"_s, 1000}};
    for (const QString& locale : {u"en_US"_s, u"de_DE"_s, u"ru_RU"_s, u"C"_s}) {
        const UserLocale user(locale);
        for (const DecimalRow& row : rows) {
            EXPECT_EQ(decimalValue(row.text), row.value)
                << row.text.toStdString() << " in " << locale.toStdString();
        }
    }
}

TEST(DecimalValue, TheArabicMarkIsADecimalMark)
{
    EXPECT_EQ(decimalValue(u"000012\u066B50"_s), 12.5);
    EXPECT_EQ(errorOf([] { (void)decimalValue(u"1\u066B5\u066B2"_s); }), 13);
    EXPECT_EQ(errorOf([] { (void)decimalValue(u"1\u066B5.2"_s); }), 13);
}

TEST(DecimalValue, AnythingElseIsReadByTheLocale)
{
    {
        const UserLocale english(u"en_US"_s);
        EXPECT_EQ(decimalValue(u"1,234.5"_s), 1234.5);
    }
    {
        const UserLocale german(u"de_DE"_s);
        EXPECT_EQ(decimalValue(u"1.234,5"_s), 1234.5);
        EXPECT_EQ(errorOf([] { (void)decimalValue(u"1,234.5"_s); }), 13);
    }
}

TEST(DecimalValue, WhatIsNoNumberIsATypeMismatch)
{
    for (const QString& text :
         {u""_s, u"  "_s, u"abc"_s, u"."_s, u"-"_s, u"1 2"_s, u"12x"_s, u"0x10"_s, u"&H10"_s,
          u"inf"_s, u"-inf"_s, u"nan"_s, u"1E400"_s, u"1..2"_s, u"e5"_s, u"1e"_s}) {
        EXPECT_EQ(errorOf([&] { (void)decimalValue(text); }), 13) << text.toStdString();
    }
}

TEST(CountValue, IsReadAsANumberAndRounded)
{
    EXPECT_EQ(countValue(u"12"_s).value(), 12);
    EXPECT_EQ(countValue(u"2.5"_s).value(), 2);
    EXPECT_EQ(countValue(u"3,5"_s).value(), 4);
    EXPECT_EQ(countValue(u"-1"_s).value(), -1);
}

TEST(CountValue, RaisesMismatchAndOverflow)
{
    EXPECT_EQ(errorOf([] { (void)countValue(u"abc"_s); }), 13);
    EXPECT_EQ(errorOf([] { (void)countValue(u""_s); }), 13);
    EXPECT_EQ(errorOf([] { (void)countValue(u"99999"_s); }), 6);
}

} // namespace orvanta
