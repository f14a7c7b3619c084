#include "playback/position_slider.h"

#include "core/error_boundary.h"
#include "core/numbers.h"
#include "playback/brakes.h"

#include <algorithm>
#include <utility>

namespace orvanta {

PositionSlider::PositionSlider(EngineContext& context)
    : m_context(context)
{}

double PositionSlider::durationSeconds() const
{
    return decimalValue(m_context.player().duration);
}

BrakeSpan PositionSlider::span() const
{
    const double duration = durationSeconds();
    if (!m_context.areBrakesPlaying()) {
        return {0, duration};
    }
    return brakeSpan(m_context.currentPacket(), m_context.cursor().clip, duration);
}

void PositionSlider::showTime(double seconds)
{
    m_context.view->setCurrentTime(formatPicture(seconds, kPositionPicture));
}

void PositionSlider::display()
{
    m_dragBegan.reset(); // a drag under which the window was hidden is never committed
    const QString position = m_context.player().position;
    resumeNext("current time", [&] { showTime(decimalValue(position)); });
    if (position.isEmpty()) {
        return;
    }
    resumeNext("length of clip", [&] {
        m_context.view->setClipLength(formatPicture(durationSeconds(), kDurationPicture));
    });
    resumeNext("position slider",
               [&] { SetValue(sliderOfPosition(decimalValue(position), span())); });
}

void PositionSlider::SetValue(Int16 value)
{
    m_context.module.SliderValue = std::clamp(value, Int16(0), Int16(100));
    m_context.view->moveSlider(m_context.module.SliderValue);
}

void PositionSlider::reset()
{
    SetValue(0);
}

void PositionSlider::moved(double value)
{
    m_dragBegan = m_dragBegan.value_or(m_context.generation());
    trapped("preview", [&] {
        const Int16 whole = roundToInt16(value);
        showTime(positionOfSlider(value, span()));
        m_context.module.SliderValue = whole;
    });
}

void PositionSlider::committed()
{
    trapped("seek by slider", [&] { commit(); });
}

void PositionSlider::commit()
{
    if (!m_context.player().isLoaded()) { // the clip came to its end in the user's hand
        showTime(0);
        reset();
        return;
    }
    if (std::exchange(m_dragBegan, std::nullopt).value_or(m_context.generation()) !=
        m_context.generation()) {
        return showPolled(); // dragged in a clip that is no longer the one
    }
    const BrakeSpan part = span();
    if (part.end <= part.begin) { // of unknown length: the handle's place means none in the clip
        showTime(decimalValue(m_context.player().position));
        return reset();
    }
    const double target = positionOfSlider(m_context.module.SliderValue.value(), part);
    const double position = decimalValue(m_context.player().position);
    const SeekDecision decision = seekOnCommit(m_context.player().state, target, position);
    if (decision.seek) {
        m_context.operations.SetPlayerPosition(decimalText(target));
        showPlace(reachedSeconds());
    }
    if (decision.restoreSlider) {
        SetValue(sliderOfPosition(position, part));
    }
    if (m_context.player().state == MediaControl::Paused) {
        showPolled();
    }
}

/// The preview goes, and label and knob are where the player is.
void PositionSlider::showPolled()
{
    showPlace(decimalValue(m_context.player().position));
}

void PositionSlider::showPlace(double seconds)
{
    showTime(seconds);
    SetValue(sliderOfPosition(seconds, span()));
}

void PositionSlider::seekTo(double seconds)
{
    trapped("seek", [&] {
        const double target = std::max(seconds, 0.0);
        m_context.operations.SetPlayerPosition(decimalText(target));
        if (m_context.areBrakesPlaying()) {
            followSeek(target);
        }
        showReached();
    });
}

/// Where a seek has taken the player, which may be nowhere: the video window's mirror knows it, the
/// snapshot only where it was to go.
double PositionSlider::reachedSeconds() const
{
    return decimalValue(m_context.video.mirror().VideoPosition);
}

/// A clip that stands has no tick that would show where a key has taken it.
void PositionSlider::showReached()
{
    if (!m_context.player().isLoaded() || m_context.view->isSliderHeld()) {
        return;
    }
    showPlace(reachedSeconds());
}

/// The last brake at or before the new position becomes current; the player stays where it is.
void PositionSlider::followSeek(double seconds)
{
    const BrakeSpan part = span();
    if (seconds >= part.begin && seconds < part.end) {
        return;
    }
    makeBrakeCurrent(brakeAt(m_context.currentPacket(), seconds));
}

void PositionSlider::followStop()
{
    if (!m_context.areBrakesPlaying()) {
        return;
    }
    const Int16 brake = brakeAt(m_context.currentPacket(), 0);
    if (brake < m_context.cursor().clip) {
        makeBrakeCurrent(brake);
    }
}

void PositionSlider::makeBrakeCurrent(Int16 brake)
{
    const PlaylistEntry& packet = m_context.currentPacket();
    const Cursor place = {m_context.cursor().packet, brake};
    m_context.setCursor(place);
    m_context.view->setClipText(place.clip >= 1 ? packet.clip(place.clip).Text : QString());
    m_context.moveListCursor(place);
}

} // namespace orvanta
