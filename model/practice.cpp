#include "model/practice.h"

#include <algorithm>

namespace orvanta {

constexpr int kFineStep = 5;    // percent, up to the normal speed
constexpr int kCoarseStep = 10; // percent, above it
constexpr int kNormalSpeed = 100;

static int waitInRange(int wait)
{
    const bool isPercent = wait > Practice::kNoWait;
    return isPercent ? std::clamp(wait, Practice::kShortestWait, Practice::kLongestWait)
                     : std::max(wait, Practice::kWaitForSeconds);
}

Practice Practice::inRange() const
{
    Practice practice = *this;
    practice.speed = std::clamp(speed, kSlowest, kFastest);
    practice.times = std::clamp(times, kEndless, kMostTimes);
    practice.wait = waitInRange(wait);
    practice.seconds = std::clamp(seconds, 1, kMostSeconds);
    practice.from = std::clamp(from, kSlowestBeginning, kNormalSpeed);
    practice.step = std::clamp(step, 0, kNormalSpeed);
    return practice;
}

int slowerThan(int speed)
{
    const int step = speed > kNormalSpeed ? kCoarseStep : kFineStep;
    return std::max((speed - 1) / step * step, Practice::kSlowest);
}

int fasterThan(int speed)
{
    const int step = speed >= kNormalSpeed ? kCoarseStep : kFineStep;
    return std::min((speed / step + 1) * step, Practice::kFastest);
}

} // namespace orvanta
