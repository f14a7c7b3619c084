// Which part of a clip a strip shows.

#include "window/strip_scale.h"

#include <gtest/gtest.h>

namespace orvanta::test {

class Scale : public testing::Test
{
protected:
    Scale()
    {
        scale.setWidth(208); // two hundred pixels between the insets
        scale.setLength(100);
    }

    StripScale scale;
};

TEST_F(Scale, ShowsTheWholeClipAtFirst)
{
    EXPECT_DOUBLE_EQ(scale.placeOf(0), 4);
    EXPECT_DOUBLE_EQ(scale.placeOf(50), 104);
    EXPECT_DOUBLE_EQ(scale.placeOf(100), 204);
    EXPECT_DOUBLE_EQ(scale.momentAt(104), 50);
    EXPECT_TRUE(scale.shows(0) && scale.shows(100));
}

TEST_F(Scale, KnowsNoMomentsOutsideTheClip)
{
    EXPECT_EQ(scale.momentAt(-30), 0);
    EXPECT_EQ(scale.momentAt(1000), 100);
}

TEST_F(Scale, KeepsTheMomentUnderThePointer)
{
    scale.zoomAround(54, 8);
    EXPECT_DOUBLE_EQ(scale.zoom(), 8);
    EXPECT_NEAR(scale.momentAt(54), 25, 1e-9);
    scale.zoomAround(150, 0.5);
    EXPECT_DOUBLE_EQ(scale.zoom(), 4);
    EXPECT_TRUE(scale.shows(25));
}

TEST_F(Scale, GoesBackToTheWholeAndNoFurther)
{
    scale.zoomAround(204, 5);
    scale.zoomAround(4, 0.01);
    EXPECT_DOUBLE_EQ(scale.zoom(), 1);
    EXPECT_DOUBLE_EQ(scale.first(), 0);
}

TEST_F(Scale, HasALimit)
{
    scale.zoomAround(104, 1e9);
    EXPECT_DOUBLE_EQ(scale.zoom(), StripScale::kMostZoom);
    EXPECT_NEAR(scale.momentAt(104), 50, 1e-9);
}

TEST_F(Scale, ScrollsWithinTheClip)
{
    scale.zoomAround(4, 2);
    scale.scrollBy(100);
    EXPECT_DOUBLE_EQ(scale.first(), 25);
    scale.scrollBy(1e6);
    EXPECT_DOUBLE_EQ(scale.first(), 50);
    scale.scrollBy(-1e6);
    EXPECT_DOUBLE_EQ(scale.first(), 0);
}

TEST_F(Scale, TurnsThePageSoThatAMomentStandsNearTheLeftEnd)
{
    scale.zoomAround(4, 4); // twenty-five seconds
    scale.turnTo(50);
    EXPECT_DOUBLE_EQ(scale.first(), 50 - 25.0 / 8);
}

TEST_F(Scale, StaysWithinTheClipInAnotherWidth)
{
    scale.zoomAround(204, 2);
    scale.setWidth(1008);
    EXPECT_DOUBLE_EQ(scale.placeOf(100), 1004);
}

TEST_F(Scale, WithoutAClipShowsNothingWrong)
{
    scale.setLength(0);
    scale.zoomAround(50, 3);
    scale.scrollBy(20);
    scale.turnTo(7);
    EXPECT_EQ(scale.momentAt(77), 0);
    EXPECT_EQ(scale.first(), 0);
    EXPECT_EQ(scale.pixelsPerSecond(), 0);
}

} // namespace orvanta::test
