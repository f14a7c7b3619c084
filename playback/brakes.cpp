#include "playback/brakes.h"

#include "model/lesson_lines.h"

namespace orvanta {

static int endMark(const PlaylistEntry& packet)
{
    return readableBrakeUpTo(packet, packet.ClipCount.value());
}

Int16 endMarkOf(const PlaylistEntry& packet)
{
    return endMark(packet);
}

/// The first brake behind this one whose time can be read; past the last without one.
static int readableBehind(const PlaylistEntry& packet, int brake)
{
    do {
        ++brake;
    } while (brake <= packet.ClipCount.value() && !brakeTime(packet, brake));
    return brake;
}

/// The end mark is its own next one; 0 when no time can be read.
static int brakeToReach(const PlaylistEntry& packet, Int16 currentBrake)
{
    const int next = readableBehind(packet, currentBrake.value());
    return next <= packet.ClipCount.value() ? next : endMark(packet);
}

std::optional<double> timeOfNextBrake(const PlaylistEntry& packet, Int16 currentBrake)
{
    const int brake = brakeToReach(packet, currentBrake);
    return brake >= 1 ? brakeTime(packet, brake) : std::nullopt;
}

BrakeSpan brakeSpan(const PlaylistEntry& packet, Int16 currentBrake, double durationSeconds)
{
    BrakeSpan span = {0, durationSeconds};
    const int begin = readableBrakeUpTo(packet, currentBrake.value());
    if (begin >= 1) {
        span.begin = *brakeTime(packet, begin);
    }
    const int end = readableBehind(packet, currentBrake.value());
    if (end <= packet.ClipCount.value()) {
        span.end = *brakeTime(packet, end);
    }
    return span;
}

bool isPastNextBrake(const PlaylistEntry& packet, Int16 currentBrake, double positionSeconds)
{
    const auto time = timeOfNextBrake(packet, currentBrake);
    return time && positionSeconds > *time;
}

/// The first checked brake behind this one; none checked: the end mark's turn has come.
static BrakeDecision passOver(const PlaylistEntry& packet, int unchecked,
                              const BrakeMarks& isChecked)
{
    int brake = readableBehind(packet, unchecked);
    while (brake <= packet.ClipCount.value() && !isChecked(brake)) {
        brake = readableBehind(packet, brake);
    }
    return brake <= packet.ClipCount.value() ? BrakeDecision{BrakeDecision::Skip, brake}
                                             : BrakeDecision{BrakeDecision::Leave, {}};
}

BrakeDecision brakeReached(const PlaylistEntry& packet, Int16 currentBrake, double positionSeconds,
                           const BrakeMarks& isChecked)
{
    const auto time = timeOfNextBrake(packet, currentBrake);
    if (!time || positionSeconds < *time) {
        return {BrakeDecision::Nothing, {}};
    }
    const int brake = brakeToReach(packet, currentBrake);
    if (brake <= currentBrake.value()) {
        return {BrakeDecision::Leave, {}};
    }
    return brake == endMark(packet) || isChecked(brake) ? BrakeDecision{BrakeDecision::Reach, brake}
                                                        : passOver(packet, brake, isChecked);
}

bool endPassesLastBrake(const PlaylistEntry& packet, double durationSeconds)
{
    constexpr double kLastSecond = 1;
    constexpr double kRounding = 0.01;
    const int last = endMark(packet);
    if (last < 1) {
        return false;
    }
    const double left = durationSeconds - *brakeTime(packet, last);
    return left <= kLastSecond && left >= -kRounding;
}

Int16 brakeAt(const PlaylistEntry& packet, double positionSeconds)
{
    int brake = endMark(packet);
    while (brake >= 1 && *brakeTime(packet, brake) > positionSeconds) {
        brake = readableBrakeUpTo(packet, brake - 1);
    }
    return brake;
}

} // namespace orvanta
