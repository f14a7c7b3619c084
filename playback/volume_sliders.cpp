#include "playback/volume_sliders.h"

#include "core/error_boundary.h"
#include "playback/volume.h"

#include <algorithm>
#include <utility>

namespace orvanta {

static Int16 onTheScale(Int16 value)
{
    return std::clamp(value, Int16(0), Int16(100));
}

VolumeSliders::VolumeSliders(EngineContext& context, std::function<void()> onMoved)
    : m_context(context),
      m_onMoved(std::move(onMoved))
{}

/// Video window and cache hold the same value, so that the poll sees no change.
void VolumeSliders::share(Int16 value)
{
    m_context.video.mirror().VideoVolume = value;
    m_context.module.playback.CachedVolume = value;
    m_onMoved();
}

void VolumeSliders::volumeMoved(Int16 value)
{
    const Int16 place = onTheScale(value);
    const double volume = volumeOfSlider(place);
    m_context.operations.SetControlVolume(controlVolume(volume));
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
    double stored = 0;
    Int16 place = 100;
    resumeNext("stored volume", [&] {
        const double volume = m_context.module.settings().volume();
        place = sliderOfVolume(volume);
        stored = volume;
    });
    m_context.operations.SetControlVolume(controlVolume(stored));
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
