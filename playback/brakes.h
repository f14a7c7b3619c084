// Brakes: pure rules over the times of a brake packet.
#pragma once

#include "core/playlist_entry.h"

#include <functional>
#include <optional>

namespace orvanta {

/// The part of the clip that the current brake covers, in seconds.
struct BrakeSpan
{
    double begin = 0; // the current brake's time; 0 before the first
    double end = 0;   // the next brake's time; the duration after the last
};

/// currentBrake: 0 before the first. Raises 13 when a time is no number.
[[nodiscard]] BrakeSpan brakeSpan(const PlaylistEntry& packet, Int16 currentBrake,
                                  double durationSeconds);

struct BrakeDecision
{
    enum What
    {
        Nothing,
        Reach, // the brake becomes current where the player is
        Skip,  // to the brake behind unchecked ones
        Leave, // the end mark is passed: on to the packets behind, else the end of the list
    };
    What what = Nothing;
    Int16 brake; // of Reach and Skip
};

/// Whether a brake's line in the list is checked.
using BrakeMarks = std::function<bool(Int16 brake)>;

/// When the next brake is due, seconds (the last brake itself is the end mark). None where its time
/// is no number.
[[nodiscard]] std::optional<double> timeOfNextBrake(const PlaylistEntry& packet,
                                                    Int16 currentBrake);

/// A brake that was passed less than this ago is reached without a seek, so that nobody hears it.
/// Further past it something has held the program up.
inline constexpr double kSoonAfterBrake = 0.5; // seconds

/// Whether the position is past the next brake (the last brake itself is the end mark). "Past" is
/// strictly greater. Raises 13 when a time is no number.
[[nodiscard]] bool isPastNextBrake(const PlaylistEntry& packet, Int16 currentBrake,
                                   double positionSeconds);

/// What to do at this position. "Reached" is greater or equal. Unchecked brakes are passed over,
/// but never the end mark when playing comes to it. Raises 13 as above.
[[nodiscard]] BrakeDecision brakeReached(const PlaylistEntry& packet, Int16 currentBrake,
                                         double positionSeconds, const BrakeMarks& isChecked);

/// Whether the last brake is so near the end of the clip that no tick may see the position past it:
/// in its last second, or behind it by no more than a time in hundredths is rounded. Then the end
/// of the clip passes it. Raises 13 when its time is no number.
[[nodiscard]] bool endPassesLastBrake(const PlaylistEntry& packet, double durationSeconds);

/// The last brake at or before the position, 0 before the first; for seeks outside the span.
[[nodiscard]] Int16 brakeAt(const PlaylistEntry& packet, double positionSeconds);

} // namespace orvanta
