#include "platform/media/media_control.h"
#include "playback/position.h"

#include <gtest/gtest.h>

namespace orvanta {

constexpr BrakeSpan kWholeClip = {.begin = 0, .end = 40};

TEST(SliderOfPosition, IsThePercentageOfTheSpan)
{
    EXPECT_EQ(sliderOfPosition(10, kWholeClip), 25);
    EXPECT_EQ(sliderOfPosition(6, {.begin = 5, .end = 9}), 25);
}

TEST(SliderOfPosition, RoundsHalfToEven)
{
    EXPECT_EQ(sliderOfPosition(0.5, {.begin = 0, .end = 100}), 0);
    EXPECT_EQ(sliderOfPosition(1.5, {.begin = 0, .end = 100}), 2);
    EXPECT_EQ(sliderOfPosition(2.5, {.begin = 0, .end = 100}), 2);
}

TEST(SliderOfPosition, OfAnEmptySpanRaisesDivisionByZero)
{
    try {
        (void)sliderOfPosition(3, {.begin = 5, .end = 5});
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::DivisionByZero);
    }
}

TEST(SliderOfPosition, OutOf16BitsRaisesOverflow)
{
    try {
        (void)sliderOfPosition(1e9, kWholeClip);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::Overflow);
    }
}

TEST(PositionOfSlider, IsThePartOfTheSpan)
{
    EXPECT_EQ(positionOfSlider(25, kWholeClip), 10);
    EXPECT_EQ(positionOfSlider(50, {.begin = 5, .end = 9}), 7);
}

TEST(SeekOnCommit, OfARunningClipSeeks)
{
    const SeekDecision decision = seekOnCommit(MediaControl::Running, 12, 10);
    EXPECT_TRUE(decision.seek);
    EXPECT_FALSE(decision.restoreSlider);
}

TEST(SeekOnCommit, AtTheExactPositionOfARunningClipDoesNothing)
{
    const SeekDecision decision = seekOnCommit(MediaControl::Running, 10, 10);
    EXPECT_FALSE(decision.seek);
    EXPECT_FALSE(decision.restoreSlider);
}

TEST(SeekOnCommit, OfAPausedClipDoesNothing)
{
    const SeekDecision decision = seekOnCommit(MediaControl::Paused, 12, 10);
    EXPECT_FALSE(decision.seek);
    EXPECT_FALSE(decision.restoreSlider);
}

TEST(SeekOnCommit, OfAStoppedClipSeeks)
{
    EXPECT_TRUE(seekOnCommit(MediaControl::Stopped, 12, 0).seek);
}

TEST(SeekOnCommit, AtTheExactPositionOfAStoppedClipSetsTheSliderBack)
{
    const SeekDecision decision = seekOnCommit(MediaControl::Stopped, 0, 0);
    EXPECT_FALSE(decision.seek);
    EXPECT_TRUE(decision.restoreSlider);
}

TEST(SeekOnCommit, WithoutAClipDoesNothing)
{
    EXPECT_FALSE(seekOnCommit(MediaControl::NotLoaded, 12, 0).seek);
}

} // namespace orvanta
