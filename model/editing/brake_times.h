// The times of a packet's brakes, and their order.
#pragma once

#include "core/playlist_entry.h"

#include <cstddef>
#include <vector>

namespace orvanta {

/// Seconds; a brake without a readable time counts as before all.
[[nodiscard]] double timeOf(const ClipEntry& brake);

/// Index, from 0, behind the last brake that is not later. Times are kept in hundredths: nearer
/// ones are the same.
[[nodiscard]] std::size_t indexForTime(const std::vector<ClipEntry>& brakes, double seconds);

/// Number, from 1, of the first brake of this time; 0 without one.
[[nodiscard]] int brakeOfTime(const std::vector<ClipEntry>& brakes, double seconds);

} // namespace orvanta
