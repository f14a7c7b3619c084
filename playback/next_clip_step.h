// The clip that will follow is made ready, so that no gap is heard before it.
#pragma once

#include "playback/advance_step.h"
#include "playback/practice_step.h"

namespace orvanta {

/// Changes nothing that is told of the clip that plays, and nothing that is decided at its end.
class NextClipStep
{
public:
    NextClipStep(EngineContext& context, const AdvanceStep& advance, const ClipStarter& starter,
                 const PracticeStep& practice)
        : m_context(context),
          m_advance(advance),
          m_starter(starter),
          m_practice(practice)
    {}

    /// Of each tick.
    void run();

private:
    [[nodiscard]] bool isNearEnd() const;
    [[nodiscard]] QString nextFile() const;

    EngineContext& m_context;
    const AdvanceStep& m_advance;
    const ClipStarter& m_starter;
    const PracticeStep& m_practice;
};

} // namespace orvanta
