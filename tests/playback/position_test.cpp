#include "platform/media/media_control.h"
#include "playback/position.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>

namespace orvanta::test {

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
    EXPECT_EQ(errorOf([] { (void)sliderOfPosition(3, {.begin = 5, .end = 5}); }), 11);
}

TEST(SliderOfPosition, OutOf16BitsRaisesOverflow)
{
    EXPECT_EQ(errorOf([] { (void)sliderOfPosition(1e9, kWholeClip); }), 6);
}

TEST(PositionOfSlider, IsThePartOfTheSpan)
{
    EXPECT_EQ(positionOfSlider(25, kWholeClip), 10);
    EXPECT_EQ(positionOfSlider(50, {.begin = 5, .end = 9}), 7);
}

TEST(SeekOnCommit, GoesByTheStateAndWhetherTheHandleWasMoved)
{
    struct Row
    {
        const char* says;
        MediaControl::State state;
        double target, position;
        bool seek, restoreSlider;
    };
    const Row rows[] = {
        {"a running clip seeks", MediaControl::Running, 12, 10, true, false},
        {"not to where it is", MediaControl::Running, 10, 10, false, false},
        {"a paused clip does nothing", MediaControl::Paused, 12, 10, false, false},
        {"a stopped clip seeks", MediaControl::Stopped, 12, 0, true, false},
        {"unmoved, its slider is set back", MediaControl::Stopped, 0, 0, false, true},
        {"without a clip nothing happens", MediaControl::NotLoaded, 12, 0, false, false},
    };
    for (const Row& row : rows) {
        const SeekDecision decision = seekOnCommit(row.state, row.target, row.position);
        EXPECT_EQ(decision.seek, row.seek) << row.says;
        EXPECT_EQ(decision.restoreSlider, row.restoreSlider) << row.says;
    }
}

} // namespace orvanta::test
