#include "playback/brakes.h"

#include "core/error_boundary.h"
#include "core/numbers.h"

#include <algorithm>

namespace orvanta {

static double timeOfBrake(const PlaylistEntry& packet, Int16 brake)
{
    return decimalValue(packet.clip(brake).Time);
}

/// The last brake is its own next one: it is the end mark of the packet.
static Int16 brakeToReach(const PlaylistEntry& packet, Int16 currentBrake)
{
    return currentBrake < packet.ClipCount ? currentBrake + 1 : packet.ClipCount;
}

std::optional<double> timeOfNextBrake(const PlaylistEntry& packet, Int16 currentBrake)
{
    try {
        return timeOfBrake(packet, brakeToReach(packet, currentBrake));
    } catch (const RuntimeError&) { // asked many times a second: who follows the brake says it
        return std::nullopt;
    }
}

BrakeSpan brakeSpan(const PlaylistEntry& packet, Int16 currentBrake, double durationSeconds)
{
    BrakeSpan span = {0, durationSeconds};
    if (currentBrake >= 1) {
        span.begin = timeOfBrake(packet, currentBrake);
    }
    if (currentBrake < packet.ClipCount) {
        span.end = timeOfBrake(packet, currentBrake + 1);
    }
    return span;
}

bool isPastNextBrake(const PlaylistEntry& packet, Int16 currentBrake, double positionSeconds)
{
    return positionSeconds > timeOfBrake(packet, brakeToReach(packet, currentBrake));
}

/// The first checked brake behind this one; none checked: the end mark's turn has come.
static BrakeDecision passOver(const PlaylistEntry& packet, Int16 unchecked,
                              const BrakeMarks& isChecked)
{
    for (int brake = unchecked.value() + 1; brake <= packet.ClipCount.value(); ++brake) {
        if (isChecked(brake)) {
            return {BrakeDecision::Skip, brake};
        }
    }
    return {BrakeDecision::Leave, {}};
}

BrakeDecision brakeReached(const PlaylistEntry& packet, Int16 currentBrake, double positionSeconds,
                           const BrakeMarks& isChecked)
{
    const Int16 brake = brakeToReach(packet, currentBrake);
    if (positionSeconds < timeOfBrake(packet, brake)) {
        return {BrakeDecision::Nothing, {}};
    }
    if (currentBrake == brake) {
        return {BrakeDecision::Leave, {}};
    }
    const bool isEndMark = brake == packet.ClipCount;
    return isEndMark || isChecked(brake) ? BrakeDecision{BrakeDecision::Reach, brake}
                                         : passOver(packet, brake, isChecked);
}

bool endPassesLastBrake(const PlaylistEntry& packet, double durationSeconds)
{
    constexpr double kLastSecond = 1;
    constexpr double kRounding = 0.01;
    const double left = durationSeconds - timeOfBrake(packet, packet.ClipCount);
    return left <= kLastSecond && left >= -kRounding;
}

/// A brake whose time is no number is never reached.
static bool isAtOrBefore(const PlaylistEntry& packet, Int16 brake, double positionSeconds)
{
    return conditionHolds("brake time",
                          [&] { return timeOfBrake(packet, brake) <= positionSeconds; });
}

Int16 brakeAt(const PlaylistEntry& packet, double positionSeconds)
{
    Int16 brake = packet.ClipCount;
    while (brake >= 1 && !isAtOrBefore(packet, brake, positionSeconds)) {
        brake -= 1;
    }
    return brake;
}

} // namespace orvanta
