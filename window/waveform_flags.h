// The brakes of a waveform: a line each, with a flag.
#pragma once

#include "window/strip_scale.h"

#include <QPointF>
#include <QRectF>

#include <vector>

class QPainter;

namespace orvanta {

/// A brake as the strip shows it.
struct WaveformBrake
{
    double seconds = 0;
    bool isEnd = false; // the end mark

    friend bool operator==(const WaveformBrake&, const WaveformBrake&) = default;
};

/// Where a brake's line and flag are, logical pixels.
struct WaveformFlag
{
    int index = 0; // of the brake, from 0
    double x = 0;  // of the line
    QRectF flag;   // empty where there is no room beside another
};

/// In the brakes' order; those out of sight are left out. selected: from 0, -1 for none. It and the
/// end mark have their flags whatever else stands there.
[[nodiscard]] std::vector<WaveformFlag> flagsOf(const std::vector<WaveformBrake>& brakes,
                                                const StripScale& scale, int selected,
                                                double width);

/// The brake that a pointer there means, -1 for none: the nearest line within four pixels, or a
/// flag.
[[nodiscard]] int brakeAt(const std::vector<WaveformFlag>& flags, int selected,
                          const QPointF& pointer);

/// Draws them; the selected one above all others.
void paintFlags(QPainter& painter, const std::vector<WaveformFlag>& flags,
                const std::vector<WaveformBrake>& brakes, int selected, double height);

} // namespace orvanta
