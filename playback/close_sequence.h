// The Close button: hides the program or ends it.
#pragma once

#include "playback/engine_context.h"
#include "playback/position_slider.h"
#include "playback/transport_buttons.h"

namespace orvanta {

class CloseSequence
{
public:
    CloseSequence(EngineContext& context, TransportButtons& transport, PositionSlider& slider);

    /// Image13: by option "nc" the program is hidden or asked to end.
    void press();
    /// From now on nothing begins; carryOut() ends the program.
    void request();
    /// Requested and not yet carried out.
    [[nodiscard]] bool isPending() const { return m_pending; }
    /// Only when no handler of the engine is waiting further up: stops, silently, deletes the
    /// scratch copy and unloads the windows.
    void carryOut();

private:
    void hideProgram();
    void unloadClip();
    void emptyPlaylist();
    void stopPlaying();
    [[nodiscard]] bool isStillRunning();
    void deleteScratchCopy() const;

    EngineContext& m_context;
    TransportButtons& m_transport;
    PositionSlider& m_slider;
    bool m_pending = false;
};

} // namespace orvanta
