// Brakes: pure rules over the times of a brake packet. A brake whose time is no number is passed
// over; the last one whose time can be read is the end mark. None of them raises.
#pragma once

#include "core/playlist_entry.h"

#include <functional>
#include <optional>

namespace orvanta {

/// The part of the clip that the current brake covers, in seconds.
struct BrakeSpan
{
    double begin = 0; // the current brake's time, or that of the last before it; 0 without one
    double end = 0;   // the next brake's time; the duration after the last
};

/// currentBrake: 0 before the first.
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

/// When the next brake is due, seconds; the end mark is its own next one. None where no time can be
/// read.
[[nodiscard]] std::optional<double> timeOfNextBrake(const PlaylistEntry& packet,
                                                    Int16 currentBrake);

/// A brake that was passed less than this ago is reached without a seek, so that nobody hears it.
/// Further past it something has held the program up.
inline constexpr double kSoonAfterBrake = 0.5; // seconds

/// Whether the position is past the next brake. "Past" is strictly greater.
[[nodiscard]] bool isPastNextBrake(const PlaylistEntry& packet, Int16 currentBrake,
                                   double positionSeconds);

/// What to do at this position. "Reached" is greater or equal. Unchecked brakes are passed over,
/// but never the end mark when playing comes to it. Raises 13 as above.
[[nodiscard]] BrakeDecision brakeReached(const PlaylistEntry& packet, Int16 currentBrake,
                                         double positionSeconds, const BrakeMarks& isChecked);

/// The last brake whose time can be read; 0 without one.
[[nodiscard]] Int16 endMarkOf(const PlaylistEntry& packet);

/// Whether the end mark is so near the end of the clip that no tick may see the position past it:
/// in its last second, or behind it by no more than a time in hundredths is rounded. Then the end
/// of the clip passes it.
[[nodiscard]] bool endPassesLastBrake(const PlaylistEntry& packet, double durationSeconds);

/// The last brake at or before the position, 0 before the first; for seeks outside the span.
[[nodiscard]] Int16 brakeAt(const PlaylistEntry& packet, double positionSeconds);

} // namespace orvanta
