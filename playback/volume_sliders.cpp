#include "playback/volume_sliders.h"

#include "playback/volume.h"

#include <algorithm>

namespace orvanta {

static Int16 onTheScale(Int16 value)
{
    return std::clamp(value, Int16(0), Int16(100));
}

VolumeSliders::VolumeSliders(EngineContext& context)
    : m_context(context)
{}

/// Video window and cache hold the same value, so that the poll sees no change.
void VolumeSliders::share(Int16 value)
{
    m_context.video.mirror().VideoVolume = value;
    m_context.module.playback.CachedVolume = value;
    m_context.onVolumeMoved();
}

void VolumeSliders::volumeMoved(Int16 value)
{
    const Int16 place = onTheScale(value);
    const double volume = volumeOfSlider(place);
    m_context.control.setVolume(controlVolume(volume));
    share(place);
    m_context.module.settings().setVolume(volume);
}

void VolumeSliders::takeVolumeOfVideoWindow()
{
    if (!m_context.operations.TakeVolumeChanged()) {
        return;
    }
    volumeMoved(m_context.operations.GetPlayerVolume());
    m_context.view->setVolumeSlider(m_context.operations.GetPlayerVolume());
}

Int16 VolumeSliders::applyStoredVolume()
{
    const double stored = m_context.module.settings().volume();
    const Int16 place = sliderOfVolume(stored);
    m_context.control.setVolume(controlVolume(stored));
    share(place);
    return place;
}

void VolumeSliders::balanceMoved(Int16 value)
{
    m_context.module.settings().setBalance(value);
}

Int16 VolumeSliders::storedBalance() const
{
    return m_context.module.settings().balance();
}

} // namespace orvanta
