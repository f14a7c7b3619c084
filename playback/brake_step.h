// The tick's brake step: following the brakes as the position reaches them.
#pragma once

#include "playback/clip_starter.h"

namespace orvanta {

class BrakeStep
{
public:
    BrakeStep(EngineContext& context, ClipStarter& starter);

    /// Runs only while the current packet's media file is the loaded one. May wait a moment in the
    /// event loop until the position moves. Raises 13 when the next brake's time is no number.
    void run();

    /// The end of the clip, which counts only where it passes the last brake.
    void clipEnded();

private:
    [[nodiscard]] double positionSeconds() const;
    [[nodiscard]] bool isPastNext() const;
    [[nodiscard]] bool staysAfterMoving();
    [[nodiscard]] BrakeDecision decide() const;
    void apply(BrakeDecision decision);
    void goToNextPacket();
    void finalStop();

    EngineContext& m_context;
    ClipStarter& m_starter;
};

} // namespace orvanta
