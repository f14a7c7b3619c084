// How loud a clip is at each moment.
#pragma once

#include <QtGlobal>

#include <vector>

namespace orvanta {

/// The lowest and the highest sample of ten milliseconds, 127 the loudest.
struct PeakPair
{
    qint8 low = 0;
    qint8 high = 0;

    friend bool operator==(const PeakPair&, const PeakPair&) = default;
};

/// From the player's second 0 on, without gaps. Empty for a clip without sound.
using Peaks = std::vector<PeakPair>;

inline constexpr int kPeaksPerSecond = 100;
/// Twelve hours: what comes later has none.
inline constexpr qsizetype kMostPeaks = qsizetype{12} * 3600 * kPeaksPerSecond;

} // namespace orvanta
