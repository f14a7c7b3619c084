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
    SeekDecision decision;
    decision.targetSeconds = targetSeconds;
    decision.seek = !unmoved && (state == MediaControl::Running || state == MediaControl::Stopped);
    decision.restoreSlider = unmoved && state == MediaControl::Stopped;
    return decision;
}

} // namespace orvanta
