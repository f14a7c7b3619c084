#include "playback/position.h"

#include "core/numbers.h"
#include "platform/media/media_control.h"

namespace orvanta {

Int16 sliderOfPosition(double positionSeconds, const BrakeSpan& span)
{
    const double length = span.end - span.begin;
    if (length == 0) {
        throw RuntimeError(ErrorNumber::DivisionByZero);
    }
    return roundToInt16((positionSeconds - span.begin) * 100 / length);
}

double positionOfSlider(double sliderValue, const BrakeSpan& span)
{
    return span.begin + (span.end - span.begin) * (sliderValue / 100);
}

SeekDecision seekOnCommit(int state, double targetSeconds, double positionSeconds)
{
    const bool unmoved = targetSeconds == positionSeconds;
    const bool stopped = state == MediaControl::Stopped;
    return {.seek = !unmoved && (stopped || state == MediaControl::Running),
            .restoreSlider = unmoved && stopped};
}

} // namespace orvanta
