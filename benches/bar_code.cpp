#include "benches/bar_code.h"

#include <bit>
#include <cstdlib>

namespace orvanta::bench {

constexpr int kCells = 20;
constexpr int kBits = 16;
constexpr int kLeastCell = 8; // pixels

static bool isColour(uint32_t pixel, int bright, int dark, int otherDark)
{
    const auto part = [pixel](int bits) { return pixel >> bits & 0xffU; };
    return part(bright) > 150 && part(dark) < 90 && part(otherDark) < 90;
}

static bool isRed(uint32_t pixel)
{
    return isColour(pixel, 16, 8, 0);
}
static bool isGreen(uint32_t pixel)
{
    return isColour(pixel, 8, 16, 0);
}
static bool isBlue(uint32_t pixel)
{
    return isColour(pixel, 0, 16, 8);
}

static unsigned brightness(uint32_t pixel)
{
    return ((pixel >> 16 & 0xffU) + (pixel >> 8 & 0xffU) + (pixel & 0xffU)) / 3;
}

/// The first pixel from here on that is not of the colour.
template <typename Colour>
static int endOf(std::span<const uint32_t> row, int from, const Colour& isOfIt)
{
    int at = from;
    while (at < static_cast<int>(row.size()) && isOfIt(row[static_cast<size_t>(at)])) {
        ++at;
    }
    return at;
}

/// With the red cell from begin to end.
static std::optional<CodePlace> codeAt(std::span<const uint32_t> row, int begin, int end)
{
    const int cell = end - begin;
    const int inGreen = end + cell / 2;
    const int inBlue = begin + 19 * cell + cell / 2;
    if (cell < kLeastCell || inBlue >= static_cast<int>(row.size()) ||
        !isGreen(row[static_cast<size_t>(inGreen)]) || !isBlue(row[static_cast<size_t>(inBlue)])) {
        return std::nullopt;
    }
    return CodePlace{begin, endOf(row, inBlue, isBlue) - begin};
}

std::optional<CodePlace> findCode(std::span<const uint32_t> row)
{
    const int width = static_cast<int>(row.size());
    for (int at = 0; at < width; at += kLeastCell) {
        if (!isRed(row[static_cast<size_t>(at)])) {
            continue;
        }
        int begin = at;
        while (begin > 0 && isRed(row[static_cast<size_t>(begin - 1)])) {
            --begin;
        }
        const int end = endOf(row, at, isRed);
        if (const auto place = codeAt(row, begin, end)) {
            return place;
        }
        at = end;
    }
    return std::nullopt;
}

std::optional<unsigned> readCode(std::span<const uint32_t> row, CodePlace place)
{
    const auto middleOf = [&](int cell) {
        return row[static_cast<size_t>(place.x + (2 * cell + 1) * place.width / (2 * kCells))];
    };
    if (place.x < 0 || place.width < kCells * kLeastCell ||
        place.x + place.width > static_cast<int>(row.size()) || !isRed(middleOf(0)) ||
        !isGreen(middleOf(1)) || !isBlue(middleOf(kCells - 1))) {
        return std::nullopt;
    }
    unsigned bits = 0;
    for (int cell = 2; cell <= kBits + 2; ++cell) {
        const unsigned bright = brightness(middleOf(cell));
        if (bright > 80 && bright < 175) {
            return std::nullopt;
        }
        bits = bits << 1 | (bright >= 175 ? 1U : 0U);
    }
    const unsigned number = bits >> 1;
    const bool isOdd = (bits & 1U) != 0;
    return (std::popcount(number) % 2 == 1) == isOdd ? std::optional(number) : std::nullopt;
}

} // namespace orvanta::bench
