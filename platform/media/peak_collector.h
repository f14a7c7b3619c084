// From the samples of a clip to its peaks.
#pragma once

#include "platform/media/peaks.h"

struct AVFrame;

namespace orvanta {

/// Mixes to mono and keeps the extremes. Samples may come in any form that decoders give.
class PeakCollector
{
public:
    /// seconds: of the frame's first sample, by the player's clock. What lies before 0, or beyond
    /// the most that is kept, is passed over.
    void add(const AVFrame& frame, double seconds);

    [[nodiscard]] const Peaks& peaks() const { return m_peaks; }

private:
    Peaks m_peaks;
};

} // namespace orvanta
