#include "core/numbers.h"
#include "playback/volume.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>

namespace orvanta::test {

TEST(Volume, OfTheSliderPlacesSetsTheControl)
{
    struct Row
    {
        int place;
        int control;
    };
    for (const Row& row :
         {Row{100, 0}, Row{99, -1}, Row{75, -125}, Row{50, -1000}, Row{0, -8000}}) {
        EXPECT_EQ(controlVolume(volumeOfSlider(row.place)), row.control) << row.place;
    }
}

TEST(Volume, IsStoredUnrounded)
{
    EXPECT_EQ(decimalText(volumeOfSlider(99)), QStringLiteral("-0.008"));
    EXPECT_EQ(decimalText(volumeOfSlider(100)), QStringLiteral("0"));
}

TEST(Volume, OfPlace99IsReadBackAsPlace100)
{
    EXPECT_EQ(sliderOfVolume(volumeOfSlider(99)), 100);
}

TEST(Volume, OfEveryFifthPlaceIsReadBackAsThatPlace)
{
    for (int place = 0; place <= 100; place += 5) {
        EXPECT_EQ(sliderOfVolume(volumeOfSlider(place)), place);
    }
}

TEST(Volume, ReadBackStaysOnTheScale)
{
    EXPECT_EQ(sliderOfVolume(500), 100);
    EXPECT_EQ(sliderOfVolume(-30000), 0);
}

TEST(Volume, StoredOutside16BitsRaisesOverflow)
{
    EXPECT_EQ(errorOf([] { (void)sliderOfVolume(-40000); }), 6);
}

TEST(Volume, OfTheControlStaysWithinItsRange)
{
    EXPECT_EQ(controlVolume(-20000), -10000);
    EXPECT_EQ(controlVolume(12), 0);
}

} // namespace orvanta::test
