#include "playback/next_clip_step.h"

namespace orvanta {

// Several ticks, and long enough for a disk that has to wake up. Not longer: until then the user
// may choose anything at no cost.
constexpr double kAhead = 5; // seconds

void NextClipStep::run()
{
    if (m_context.player().isRunning()) {
        m_context.operations.PrepareMedia(isNearEnd() ? nextFile() : QString());
    }
}

bool NextClipStep::isNearEnd() const
{
    const double duration = m_context.operations.durationSeconds();
    return duration > 0 && duration - m_context.operations.secondsNow() < kAhead;
}

/// A clip that ends within its brakes is followed by nothing.
QString NextClipStep::nextFile() const
{
    if (m_context.cursor().packet < 1 || !m_practice.goesOnAfterClip() ||
        (m_context.isCurrentPacketBraked() && !m_context.openedMeanwhile)) {
        return {};
    }
    const auto place = m_advance.placeAfterClip();
    return place ? m_starter.fileOf(*place) : QString();
}

} // namespace orvanta
