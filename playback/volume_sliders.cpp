#include "playback/volume_sliders.h"

#include "core/ini.h"
#include "core/numbers.h"
#include "playback/volume.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kSaved = u"save"_s;
static const QString kVolume = u"volume"_s;
static const QString kBalance = u"balance"_s;

static Int16 onTheScale(Int16 value)
{
    return std::clamp(value, Int16(0), Int16(100));
}

VolumeSliders::VolumeSliders(EngineContext& context, std::function<void()> onMoved)
    : m_context(context),
      m_onMoved(std::move(onMoved))
{}

void VolumeSliders::write(const QString& key, const QString& value) const
{
    WriteIni(kSaved, key, value, m_context.module.IniPath);
}

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
    write(kVolume, decimalText(volume));
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
    const double stored = decimalValue(ReadIni(kSaved, kVolume, m_context.module.IniPath, u"0"_s));
    const Int16 place = sliderOfVolume(stored);
    m_context.operations.SetControlVolume(controlVolume(stored));
    share(place);
    return place;
}

void VolumeSliders::balanceMoved(Int16 value)
{
    write(kBalance, decimalText(value.value()));
}

Int16 VolumeSliders::storedBalance() const
{
    return roundToInt16(decimalValue(ReadIni(kSaved, kBalance, m_context.module.IniPath, u"50"_s)));
}

} // namespace orvanta
