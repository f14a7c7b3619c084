// The tick's brake step: following the brakes as the position reaches them.
#pragma once

#include "playback/advance_step.h"
#include "playback/clip_starter.h"
#include "playback/practice_step.h"

namespace orvanta {

class BrakeStep
{
public:
    BrakeStep(EngineContext& context, ClipStarter& starter, AdvanceStep& advance,
              PracticeStep& practice);

    /// How old the position may be by which the step goes.
    enum Position
    {
        PolledByTick,
        JustReported, // by the player, which therefore moves
    };

    /// Runs only while the current packet's media file is the loaded one. May wait a moment in the
    /// event loop until a polled position moves.
    void run(Position position);
    /// How far the next brake is from this position while the player runs, seconds of the clip,
    /// negative when it is passed; none without one. Raises nothing.
    [[nodiscard]] std::optional<double> secondsToNext(double seconds) const;

    /// The end of the clip, which counts only where it passes the last brake.
    void clipEnded();

private:
    [[nodiscard]] double positionSeconds() const;
    [[nodiscard]] bool isPastNext() const;
    [[nodiscard]] bool staysAfterMoving();
    [[nodiscard]] BrakeDecision decide(double seconds) const;
    void standBefore(const BrakeDecision& decision);
    void goOn();
    void apply(BrakeDecision decision);
    void leavePacket();
    void finalStop();

    EngineContext& m_context;
    ClipStarter& m_starter;
    AdvanceStep& m_advance;
    PracticeStep& m_practice;
};

} // namespace orvanta
