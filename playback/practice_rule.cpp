#include "playback/practice_rule.h"

#include <algorithm>

namespace orvanta {

static bool waitsAfter(const Practice& practice, double seconds)
{
    const bool byLength = practice.wait > Practice::kNoWait;
    return practice.wait != Practice::kNoWait && (!byLength || seconds > 0);
}

AfterLine nextAfterLine(const Practice& practice, int roundsPlayed, double seconds)
{
    if (!practice.isEndless() && roundsPlayed < practice.times) {
        return AfterLine::Again;
    }
    return waitsAfter(practice, seconds) ? AfterLine::Wait : nextAfterWait(practice);
}

AfterLine nextAfterWait(const Practice& practice)
{
    return practice.isEndless() ? AfterLine::Again : AfterLine::GoOn;
}

std::optional<double> waitAfterLine(const Practice& practice, double lineSeconds, double speed)
{
    switch (practice.wait) {
    case Practice::kWaitForKey:
        return std::nullopt;
    case Practice::kWaitForSeconds:
        return practice.seconds;
    default:
        return lineSeconds / speed * practice.wait / 100;
    }
}

double speedOfRound(const Practice& practice, int round)
{
    const double tempo = std::min(practice.from + double(practice.step) * (round - 1), 100.0);
    const double percent = practice.speed * tempo / 100;
    return std::max(percent, double(Practice::kSlowest)) / 100;
}

} // namespace orvanta
