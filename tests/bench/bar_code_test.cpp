// The number in a picture, as the measurements read it from the screen.

#include "benches/bar_code.h"

#include <bit>
#include <gtest/gtest.h>
#include <vector>

namespace orvanta::bench {

constexpr uint32_t kRed = 0xfe0000;
constexpr uint32_t kGreen = 0x00ff01;
constexpr uint32_t kBlue = 0x0000fe;
constexpr uint32_t kWhite = 0xffffff;
constexpr uint32_t kGrey = 0x808080;

static std::vector<uint32_t> cellsOf(unsigned number)
{
    std::vector<uint32_t> cells = {kRed, kGreen};
    for (int bit = 15; bit >= 0; --bit) {
        cells.push_back((number >> bit & 1U) != 0 ? kWhite : 0);
    }
    cells.push_back(std::popcount(number) % 2 == 1 ? kWhite : 0);
    cells.push_back(kBlue);
    return cells;
}

/// On a screen that is grey beside it.
static std::vector<uint32_t> drawn(const std::vector<uint32_t>& cells, int x, int width)
{
    std::vector<uint32_t> row(1920, kGrey);
    for (int i = 0; i < width; ++i) {
        row[static_cast<size_t>(x + i)] = cells[static_cast<size_t>(i * 20 / width)];
    }
    return row;
}

TEST(BarCode, IsFoundAndReadAtAnyPlaceAndSize)
{
    for (const int width : {200, 333, 640, 1280, 1919}) {
        for (const unsigned number : {0U, 1U, 0x5555U, 0xaaaaU, 40000U, 0xffffU}) {
            const auto row = drawn(cellsOf(number), (1920 - width) / 2, width);
            const auto place = findCode(row);
            ASSERT_TRUE(place) << width;
            EXPECT_EQ(place->x, (1920 - width) / 2);
            EXPECT_EQ(place->width, width);
            EXPECT_EQ(readCode(row, *place), number) << width;
        }
    }
}

TEST(BarCode, IsNotReadWhereABitIsLostHalfBrightOrTheColoursAreElsewhere)
{
    constexpr CodePlace kPlace = {100, 640};
    auto cells = cellsOf(1234);
    ASSERT_EQ(readCode(drawn(cells, 100, 640), kPlace), 1234U);
    EXPECT_FALSE(readCode(drawn(cells, 180, 640), kPlace));
    EXPECT_FALSE(readCode(drawn(cells, 100, 640), {1800, 640})) << "beyond the edge";
    cells[7] ^= kWhite;
    EXPECT_FALSE(readCode(drawn(cells, 100, 640), kPlace)) << "parity";
    cells[7] = kGrey;
    EXPECT_FALSE(readCode(drawn(cells, 100, 640), kPlace));
}

TEST(BarCode, IsNotFoundOnAScreenWithoutIt)
{
    EXPECT_FALSE(findCode(std::vector<uint32_t>(1920, kRed)));
    EXPECT_FALSE(findCode(std::vector<uint32_t>(1920, kGrey)));
    auto cells = cellsOf(7);
    cells.back() = kGrey;
    EXPECT_FALSE(findCode(drawn(cells, 0, 1280)));
    EXPECT_FALSE(findCode({}));
}

} // namespace orvanta::bench
