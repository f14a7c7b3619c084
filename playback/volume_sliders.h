// The volume and balance sliders.
#pragma once

#include "playback/engine_context.h"

#include <functional>

namespace orvanta {

class VolumeSliders
{
public:
    VolumeSliders(EngineContext& context, std::function<void()> onMoved);

    /// Moved by the user, 0 to 100: control, video window, cache and settings.
    void volumeMoved(Int16 value);
    /// Takes VolumeChanged: the video window's keys move the slider.
    void takeVolumeOfVideoWindow();
    /// The stored volume goes to the control; the settings stay. Returns the slider's place. Full
    /// where the stored text is no such number.
    Int16 applyStoredVolume();

    void balanceMoved(Int16 value);
    /// 50, the centre, when nothing is stored. Raises 13 or 6.
    [[nodiscard]] Int16 storedBalance() const;

private:
    void share(Int16 value);

    EngineContext& m_context;
    std::function<void()> m_onMoved; // for who shows the volume elsewhere
};

} // namespace orvanta
