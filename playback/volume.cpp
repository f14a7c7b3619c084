#include "playback/volume.h"

#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

double volumeOfSlider(Int16 p)
{
    const double x = (100 - p.value()) / 5.0;
    return 0 - x * x * x;
}

int controlVolume(double v)
{
    constexpr double silent = -10000;
    return static_cast<int>(std::floor(std::clamp(v, silent, 0.0)));
}

Int16 sliderOfVolume(double stored)
{
    const Int16 whole = roundToInt16(stored);
    const Int16 fifths = roundToInt16(std::cbrt(-whole.value()));
    return std::clamp(100 - 5 * fifths.value(), 0, 100);
}

} // namespace orvanta
