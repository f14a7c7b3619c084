// Keeping the place in the lesson while the lesson is edited.
#pragma once

#include "model/editing/edit_step.h"
#include "playback/clip_starter.h"

namespace orvanta {

/// What plays plays on, in the line that it is in now. Interface thread only.
class EditFollower
{
public:
    EditFollower(EngineContext& context, ClipStarter& starter);

    /// The step was done to what is open. What waits is superseded. A line that is gone gives way
    /// to the one behind it, which is still to come; in a packet of brakes to the brake whose
    /// span the player is in.
    void follow(const EditStep& step);

private:
    struct NewPlace
    {
        Cursor cursor;
        bool isToCome = false; // it begins when what plays has ended
    };
    [[nodiscard]] NewPlace placeFor(const EditStep& step, Cursor before) const;
    [[nodiscard]] NewPlace behindGone(const EditStep& step, Cursor before) const;
    [[nodiscard]] NewPlace firstOf(int packet) const;
    [[nodiscard]] bool isLoaded(EditPlace place) const;
    void showText();
    [[nodiscard]] Cursor atPlayer(Cursor cursor) const;

    EngineContext& m_context;
    ClipStarter& m_starter;
};

} // namespace orvanta
