#include "platform/media/silences.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

static bool isSilent(PeakPair pair, double most)
{
    return std::max(-static_cast<int>(pair.low), static_cast<int>(pair.high)) <= most;
}

static double secondsOf(std::size_t place)
{
    return static_cast<double>(place) / kPeaksPerSecond;
}

std::vector<SilentSpan> silencesIn(const Peaks& peaks, double decibels, double leastSeconds)
{
    constexpr double kHair = 1e-9;
    const double most = 127 * std::pow(10.0, std::min(decibels, 0.0) / 20);
    std::vector<SilentSpan> silences;
    std::size_t from = 0;
    for (std::size_t i = 0; i <= peaks.size(); ++i) {
        if (i < peaks.size() && isSilent(peaks[i], most)) {
            continue;
        }
        if (i > from && secondsOf(i - from) + kHair >= leastSeconds) {
            silences.push_back({secondsOf(from), secondsOf(i)});
        }
        from = i + 1;
    }
    return silences;
}

std::vector<SuggestedMark> marksAfter(const std::vector<SilentSpan>& silences, double length)
{
    constexpr double kAtEnd = 0.1; // seconds: a clip's last sound and its length differ a little
    std::vector<SuggestedMark> marks;
    for (const SilentSpan& silence : silences) {
        if (silence.to < length - kAtEnd) {
            marks.push_back({.seconds = silence.to, .text = {}});
        }
    }
    return marks;
}

} // namespace orvanta
