// Where a clip is silent, and where its sound begins again.
#pragma once

#include "platform/media/peaks.h"
#include "platform/media/suggested_mark.h"

#include <vector>

namespace orvanta {

/// Seconds.
struct SilentSpan
{
    double from = 0;
    double to = 0;

    friend bool operator==(const SilentSpan&, const SilentSpan&) = default;
};

/// The spans in which no peak is louder than the threshold, at least this many seconds long, in
/// order. decibels: below the loudest that there can be, so at most 0. Peaks are coarse: below
/// -42 dB, only what is nothing at all to them counts as silent, which is less than -48 dB.
[[nodiscard]] std::vector<SilentSpan> silencesIn(const Peaks& peaks, double decibels,
                                                 double leastSeconds);

/// One mark without a text at the end of each span, where the sound begins again. length: of the
/// clip, seconds: a silence that lasts until there has no mark.
[[nodiscard]] std::vector<SuggestedMark> marksAfter(const std::vector<SilentSpan>& silences,
                                                    double length);

} // namespace orvanta
