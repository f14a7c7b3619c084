// The Play, Pause and Stop buttons: actions and looks.
#pragma once

#include "playback/engine_context.h"
#include "playback/position_slider.h"

namespace orvanta {

/// Each change of a button's enabled state exchanges its two pictures.
class TransportButtons
{
public:
    TransportButtons(EngineContext& context, PositionSlider& slider);

    void pressPlay();  // Image5
    void pressPause(); // Image3
    /// Image4. In a brake packet: back to the current brake, and wait there.
    void pressStop();

    /// The looks of the playing state, of the idle one.
    void showPlaying();
    void showIdle();
    /// The idle look after the program has emptied the player: no tick shows the beginning then.
    void showUnloaded();
    /// Time and slider at 0, unless the user holds the slider.
    void showBeginning();
    /// For a view that knows nothing yet.
    void showAgain();
    /// Takes StateChanged: keys, tray and full screen also change the state.
    void reconcile();

    [[nodiscard]] const TransportLooks& looks() const { return m_looks; }

private:
    [[nodiscard]] bool canPlay() const;
    void stopPlayer();
    void noteEnd(MediaControl::State state);
    void reset();
    void show(const TransportLooks& looks);
    void setPlay(bool enabled);
    void setPause(bool enabled);

    EngineContext& m_context;
    PositionSlider& m_slider;
    TransportLooks m_looks; // as the presses leave them
    TransportLooks m_shown; // Play is lit only where pressing it does something
    MediaControl::State m_knownState = MediaControl::NotLoaded;
};

} // namespace orvanta
