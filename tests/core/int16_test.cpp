#include "core/error_boundary.h"
#include "core/int16.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>

namespace orvanta {

TEST(Int16, HoldsItsWholeRange)
{
    EXPECT_EQ(Int16(32767).value(), 32767);
    EXPECT_EQ(Int16(-32768).value(), -32768);
}

TEST(Int16, ValuesOutsideTheRangeOverflow)
{
    EXPECT_EQ(errorOf([] { (void)Int16(32768); }), 6);
    EXPECT_EQ(errorOf([] { (void)Int16(-32769); }), 6);
}

TEST(Int16, ArithmeticIsChecked)
{
    Int16 largest = 32767;
    EXPECT_EQ(errorOf([&] { largest += 1; }), 6);
    EXPECT_EQ(largest.value(), 32767) << "a failing step changes nothing";
    EXPECT_EQ(errorOf([] { (void)(Int16(-32768) - Int16(1)); }), 6);
    EXPECT_EQ((Int16(30000) - Int16(1) + Int16(2)).value(), 30001);
}

// Not static: the compiler must not see that it always fails.
[[gnu::noinline]] Int16 countOrFail(qint64 value)
{
    if (value < 0) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return value;
}

TEST(Int16, KeepsItsValueWhenTheNewOneFails)
{
    Int16 count = 7;
    resumeNext("test", [&] { count = countOrFail(-1); });
    EXPECT_EQ(count.value(), 7);
    Int16 absent;
    resumeNext("test", [&] { absent = countOrFail(-1); });
    EXPECT_EQ(absent.value(), 0);
}

TEST(Int16, ComparesByValue)
{
    EXPECT_LT(Int16(-1), Int16(0));
    EXPECT_EQ(Int16(7), Int16(7));
}

TEST(Flag16, TrueIsMinusOne)
{
    EXPECT_EQ(Flag16(true).value(), -1);
    EXPECT_EQ(Flag16(false).value(), 0);
}

TEST(Flag16, IsTakenOnce)
{
    Flag16 request = true;
    EXPECT_TRUE(request.take());
    EXPECT_FALSE(request.take());
    EXPECT_EQ(request.value(), 0);
}

} // namespace orvanta
