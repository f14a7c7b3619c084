// Brakes are reached on time: neither the tick nor, for clips of sound alone, the player's own
// reports of its position are fast enough.
#pragma once

#include "playback/brake_step.h"

#include <QTimer>

#include <functional>

namespace orvanta {

class BrakeWatch
{
public:
    /// due: called from the event loop when the player has passed the next brake.
    BrakeWatch(EngineContext& context, BrakeStep& brakes, std::function<void()> due);

    /// The player has reported a position.
    void positionReported();

private:
    EngineContext& m_context;
    BrakeStep& m_brakes;
    QTimer m_near; // until the brake, when it comes before the next report
    QTimer m_due;  // from the queue: a seek of the engine's own also reports a position
};

} // namespace orvanta
