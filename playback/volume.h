// Volume slider formulas.
#pragma once

#include "core/int16.h"

namespace orvanta {

/// v = -((100 - p) / 5)^3, hundredths of a decibel, not rounded. p: 0 to 100.
[[nodiscard]] double volumeOfSlider(Int16 p);
/// The whole number that the control gets: the largest not above v.
[[nodiscard]] int controlVolume(double v);
/// Slider place of a stored volume: 100 - 5 * round(cube root of -w), at most 100, at least 0.
[[nodiscard]] Int16 sliderOfVolume(double stored);

} // namespace orvanta
