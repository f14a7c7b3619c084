#include "playback/transport_buttons.h"

#include "core/error_boundary.h"

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr TransportLooks kIdle = {};
constexpr TransportLooks kPlaying = {
    .playEnabled = false, .pauseEnabled = true, .playSwapped = true, .pauseSwapped = true};

TransportButtons::TransportButtons(EngineContext& context, PositionSlider& slider)
    : m_context(context),
      m_slider(slider)
{}

/// Exchanges the picture even when the button already was so: a second press shows it.
void TransportButtons::setPlay(bool enabled)
{
    m_looks.playEnabled = enabled;
    m_looks.playSwapped = !m_looks.playSwapped;
}

void TransportButtons::setPause(bool enabled)
{
    m_looks.pauseEnabled = enabled;
    m_looks.pauseSwapped = !m_looks.pauseSwapped;
}

void TransportButtons::show(const TransportLooks& looks)
{
    m_looks = looks;
    m_shown = looks;
    if (looks.playEnabled && !canPlay()) {
        m_shown.playEnabled = false;
        m_shown.playSwapped = !looks.playSwapped;
    }
    m_context.view->showTransport(m_shown);
}

bool TransportButtons::canPlay() const
{
    return !m_context.player().isEmpty() || m_context.module.playlist.entryCount() > 0;
}

void TransportButtons::showAgain()
{
    show(m_looks);
}

void TransportButtons::showPlaying()
{
    show(kPlaying);
}

void TransportButtons::showIdle()
{
    show(kIdle);
}

void TransportButtons::showUnloaded()
{
    showIdle();
    m_knownState = MediaControl::NotLoaded;
}

void TransportButtons::pressPlay()
{
    if (m_context.player().isLoaded()) {
        m_context.operations.PlayerRun();
        setPause(true);
        setPlay(false);
        show(m_looks);
    }
}

void TransportButtons::pressPause()
{
    if (m_context.player().isLoaded()) {
        m_context.operations.PauseIfRunning();
        setPlay(true);
        setPause(false);
        show(m_looks);
    }
}

void TransportButtons::pressStop()
{
    m_context.onStopAsked();
    if (!m_context.player().isLoaded()) {
        return;
    }
    stopPlayer();
    reset();
    if (m_looks.pauseEnabled) {
        setPause(false);
    }
    if (!m_looks.playEnabled) {
        setPlay(true);
    }
    show(m_looks);
    m_context.log.stopped();
}

void TransportButtons::showBeginning()
{
    if (m_context.view->isSliderHeld()) {
        return;
    }
    reset();
}

void TransportButtons::reset()
{
    m_slider.reset();
    m_context.view->setCurrentTime(u"0.00"_s);
}

void TransportButtons::stopPlayer()
{
    if (!m_context.areBrakesPlaying()) {
        m_context.operations.StopIfRunning();
        return;
    }
    m_context.operations.PauseIfRunning();
    resumeNext("back to the brake", [&] {
        const PlaylistEntry& packet = m_context.currentPacket();
        m_context.operations.SetPlayerPosition(packet.clip(m_context.cursor().clip).Time);
    });
}

void TransportButtons::reconcile()
{
    if (m_shown.playEnabled != (m_looks.playEnabled && canPlay())) {
        showAgain();
    }
    const bool settled = !m_context.player().opening && !m_context.startFailed &&
                         !m_context.module.playback.ClipEnded;
    if (!settled || !m_context.module.playback.StateChanged.take()) {
        return;
    }
    const MediaControl::State state = m_context.player().state;
    if (state == MediaControl::Running) {
        showPlaying();
        m_context.log.running();
    } else {
        showIdle();
    }
    if (state == MediaControl::Stopped) {
        showBeginning();
        m_slider.followStop();
    }
    noteEnd(state);
    m_knownState = state;
}

/// A clip that is gone without a stop leaves what a stop leaves.
void TransportButtons::noteEnd(MediaControl::State state)
{
    if (state > MediaControl::Stopped || m_knownState <= MediaControl::Stopped) {
        return;
    }
    if (state == MediaControl::NotLoaded) {
        showBeginning();
    }
    m_context.log.stopped();
}

} // namespace orvanta
