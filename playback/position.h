// Position slider arithmetic: pure rules. The slider spans 0 to 100 over a span of the clip.
#pragma once

#include "core/int16.h"
#include "playback/brakes.h"

namespace orvanta {

/// Slider value of a position within a span. Raises 11 for an empty span, 6 outside 16 bits.
[[nodiscard]] Int16 sliderOfPosition(double positionSeconds, const BrakeSpan& span);

/// Position of a slider value within a span, seconds.
[[nodiscard]] double positionOfSlider(double sliderValue, const BrakeSpan& span);

struct SeekDecision
{
    bool seek = false;          // SetPlayerPosition with the target, Label1 shows it
    bool restoreSlider = false; // the slider is set back from the position
};

/// Decides what a committed slider value does. state as MediaControl::State.
[[nodiscard]] SeekDecision seekOnCommit(int state, double targetSeconds, double positionSeconds);

} // namespace orvanta
