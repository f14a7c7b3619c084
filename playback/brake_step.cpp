#include "playback/brake_step.h"

#include "core/numbers.h"
#include "playback/brakes.h"
#include "playback/event_wait.h"
#include "playback/playlist_marks.h"

namespace orvanta {

// A running player moves many times a second; one that does not is not waited for.
constexpr int kLongestWaitMs = 150;

BrakeStep::BrakeStep(EngineContext& context, ClipStarter& starter, AdvanceStep& advance,
                     PracticeStep& practice)
    : m_context(context),
      m_starter(starter),
      m_advance(advance),
      m_practice(practice)
{}

void BrakeStep::run(Position position)
{
    if (m_context.areBrakesPlaying() && isPastNext() &&
        (position == JustReported || staysAfterMoving())) {
        const BrakeDecision decision = decide(positionSeconds());
        if (decision.what == BrakeDecision::Nothing) {
            return;
        }
        if (!m_practice.brakeReached([this] { goOn(); })) {
            apply(decision);
        } else if (m_practice.goesOnAfterWait()) {
            standBefore(decision);
        }
    }
}

/// The seek to the next line's beginning belongs to the wait: behind it nobody is to wait any more.
void BrakeStep::standBefore(const BrakeDecision& decision)
{
    const auto time = timeOfNextBrake(m_context.currentPacket(), m_context.cursor().clip);
    if (time && decision.what == BrakeDecision::Reach) {
        m_starter.standAtBrake(*time);
    }
}

/// After a wait the player may be anywhere, and run already: what was due then is due still, and is
/// heard from its beginning.
void BrakeStep::goOn()
{
    const auto time = timeOfNextBrake(m_context.currentPacket(), m_context.cursor().clip);
    if (time) {
        if (m_context.player().isRunning()) {
            m_starter.leaveBrake();
        }
        m_context.operations.PauseIfRunning();
        apply(decide(*time));
    }
}

std::optional<double> BrakeStep::secondsToNext(double seconds) const
{
    if (!m_context.areBrakesPlaying() || !m_context.player().isRunning()) {
        return std::nullopt;
    }
    const auto time = timeOfNextBrake(m_context.currentPacket(), m_context.cursor().clip);
    return time ? std::optional(*time - seconds) : std::nullopt;
}

void BrakeStep::clipEnded()
{
    // Kept from the clip: in the snapshot it is unloaded already.
    const double duration = decimalValue(m_context.module.playback.CachedDuration);
    if (m_context.areBrakesLoaded() && endPassesLastBrake(m_context.currentPacket(), duration)) {
        leavePacket();
    }
}

double BrakeStep::positionSeconds() const
{
    return decimalValue(m_context.player().position);
}

bool BrakeStep::isPastNext() const
{
    return isPastNextBrake(m_context.currentPacket(), m_context.cursor().clip, positionSeconds());
}

/// Waits until the position has moved; false when the player has left the running state or another
/// brake, clip or playlist is current by then.
bool BrakeStep::staysAfterMoving()
{
    const Superseded superseded(m_context);
    const Cursor before = m_context.cursor();
    const QString position = m_context.player().position;
    waitInEventLoop(
        [&] {
            m_context.operations.PollPlayer();
            return superseded() || !m_context.player().isRunning() ||
                   m_context.player().position != position;
        },
        QDeadlineTimer(kLongestWaitMs));
    return !superseded() && m_context.player().isRunning() && m_context.cursor() == before &&
           m_context.areBrakesPlaying();
}

BrakeDecision BrakeStep::decide(double seconds) const
{
    const PlaylistState& playlist = m_context.module.playlist;
    const PlaylistShape shape = shapeOf(playlist, *m_context.view);
    const Int16 p = playlist.CurrentPacket;
    const BrakeMarks isChecked = [&](Int16 brake) {
        return shape.packetChecked(p) && shape.clipChecked(p, brake);
    };
    return brakeReached(m_context.currentPacket(), playlist.CurrentClip, seconds, isChecked);
}

void BrakeStep::apply(BrakeDecision decision)
{
    const Int16 packet = m_context.cursor().packet;
    switch (decision.what) {
    case BrakeDecision::Nothing:
        break;
    case BrakeDecision::Reach:
        m_starter.reachBrake(packet, decision.brake);
        break;
    case BrakeDecision::Skip:
        m_starter.ListClick(packet, decision.brake);
        break;
    case BrakeDecision::Leave:
        leavePacket();
        break;
    }
}

/// Like the end of other packets, but whatever the options say about clips and packets.
void BrakeStep::leavePacket()
{
    const PlaylistShape shape = shapeOf(m_context.module.playlist, *m_context.view);
    auto place = firstPlaceFrom(shape, m_context.cursor().packet + 1);
    if (!place && m_context.module.optionIsOn(Option::Replay)) {
        place = firstPlaceFrom(shape, 1);
    }
    if (place) {
        // It may have no media that can be opened: this one must not play past its end mark.
        m_context.operations.UnloadMedia();
        m_starter.ListClick(place->packet, place->clip);
    } else {
        finalStop();
        m_advance.listIsOver();
    }
}

/// Before the first brake again, so that Play begins the lesson anew.
void BrakeStep::finalStop()
{
    m_context.operations.StopIfRunning();
    m_context.setCursor({m_context.cursor().packet, 0});
    m_context.log.stopped();
}

} // namespace orvanta
