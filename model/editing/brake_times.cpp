#include "model/editing/brake_times.h"

#include "core/error_boundary.h"
#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

constexpr double kSameTime = 0.005;

double timeOf(const ClipEntry& brake)
{
    double seconds = -1;
    resumeNext("time of a brake", [&] { seconds = decimalValue(brake.Time); });
    return seconds;
}

std::size_t indexForTime(const std::vector<ClipEntry>& brakes, double seconds)
{
    const auto later = std::find_if(brakes.begin(), brakes.end(), [&](const ClipEntry& brake) {
        return timeOf(brake) > seconds + kSameTime;
    });
    return static_cast<std::size_t>(later - brakes.begin());
}

int brakeOfTime(const std::vector<ClipEntry>& brakes, double seconds)
{
    const auto same = std::find_if(brakes.begin(), brakes.end(), [&](const ClipEntry& brake) {
        return std::abs(timeOf(brake) - seconds) <= kSameTime;
    });
    return same == brakes.end() ? 0 : static_cast<int>(same - brakes.begin()) + 1;
}

} // namespace orvanta
