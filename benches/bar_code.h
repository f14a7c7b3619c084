// The number of a picture, drawn into the measurements' clips as a row of twenty cells: red, green,
// sixteen bits (the highest first; white is 1), their parity, blue. benches/table/clips.py draws
// it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace orvanta::bench {

/// Where the row of cells lies in a row of pixels.
struct CodePlace
{
    int x = 0;
    int width = 0; // of all twenty cells
};

/// Looks for the coloured cells in a row of pixels (0x..rrggbb). Codes of less than 160 pixels are
/// not found.
[[nodiscard]] std::optional<CodePlace> findCode(std::span<const uint32_t> row);

/// The number; nothing where the colours are not at their places, a bit is neither black nor white,
/// or the parity is wrong.
[[nodiscard]] std::optional<unsigned> readCode(std::span<const uint32_t> row, CodePlace place);

} // namespace orvanta::bench
