#include "playback/advance_step.h"

#include "core/error_boundary.h"
#include "core/paths.h"
#include "model/lesson_lines.h"
#include "model/texts.h"
#include "playback/brakes.h"
#include "playback/playlist_marks.h"
#include "playback/practice_step.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr std::chrono::seconds kTimeToRead(3);

AdvanceStep::AdvanceStep(EngineContext& context, TransportButtons& transport, ClipStarter& starter,
                         CloseSequence& close)
    : m_context(context),
      m_transport(transport),
      m_starter(starter),
      m_close(close)
{}

/// What was opened while a clip played on has not begun: its current place comes first.
AdvanceDecision AdvanceStep::after(Cursor from, const AdvanceOptions& options) const
{
    if (m_context.openedMeanwhile) {
        from.clip -= 1;
    }
    return nextAfterClip(options, shapeOf(m_context.module.playlist, *m_context.view), from);
}

AdvanceDecision AdvanceStep::decide(Cursor from) const
{
    const Module1& module = m_context.module;
    const AdvanceOptions options = {.nextClip = module.optionIsOn(Option::NextClip),
                                    .nextPacket = module.optionIsOn(Option::NextPacket),
                                    .replay = module.optionIsOn(Option::Replay)};
    return after(from, options);
}

void AdvanceStep::run()
{
    apply(decide(m_context.cursor()));
}

std::optional<Cursor> AdvanceStep::placeAfterClip() const
{
    const AdvanceDecision decision = decide(m_context.cursor());
    return decision.what == AdvanceDecision::Start ? std::optional(decision.cursor) : std::nullopt;
}

/// The brakes of one packet share one file: they fail together.
std::pair<int, int> AdvanceStep::mediaAt(Cursor place) const
{
    const bool braked = m_context.module.playlist.packet(place.packet).HasBrakes;
    return {place.packet.value(), braked ? 0 : place.clip.value()};
}

void AdvanceStep::runAfterFailure()
{
    Cursor from = m_context.cursor();
    FailedMedia failed = m_context.failedMedia;
    failed.insert(mediaAt(from));
    if (m_context.currentPacket().HasBrakes) {
        from.clip = m_context.currentPacket().ClipCount;
    }
    AdvanceDecision decision = decide(from);
    if (decision.what == AdvanceDecision::Start && failed.contains(mediaAt(decision.cursor))) {
        decision = {AdvanceDecision::Over, {1, 1}};
    }
    if (decision.what == AdvanceDecision::Over && closesWhenOver()) {
        resumeNext("name of what cannot be played", [&] { sayUnplayable(); });
    }
    apply(decision, std::move(failed));
}

/// A program that only vanished would leave its user without a reason.
void AdvanceStep::sayUnplayable()
{
    const Module1& module = m_context.module;
    const PlaylistEntry& packet = m_context.currentPacket();
    const QString& path =
        packet.HasBrakes ? packet.MediaFile : packet.clip(m_context.cursor().clip).Path;
    const TextLanguage language = textLanguage(module.Language.value(), TextLanguage::Russian);
    m_context.view->setClipText(
        interfaceText(u"Form2", u"Text2.unplayable", language).arg(fileNameOfPath(path)));
    m_readUntil.setRemainingTime(kTimeToRead);
}

void AdvanceStep::apply(const AdvanceDecision& decision, FailedMedia failed)
{
    const Cursor place = decision.cursor;
    if (decision.what == AdvanceDecision::Start) {
        return m_starter.ListClick(place.packet, place.clip, std::move(failed));
    }
    if (m_context.player().isEmpty()) {
        m_transport.showBeginning();
    }
    if (decision.what == AdvanceDecision::Over) {
        playbackIsOver(place);
    }
}

/// The button first: in a brake packet it goes back to the brake that is still current.
void AdvanceStep::playbackIsOver(Cursor rest)
{
    m_transport.pressStop();
    m_context.log.stopped();
    m_context.setCursor(rest);
    listIsOver();
}

void AdvanceStep::listIsOver()
{
    m_context.onLessonOver();
    m_context.view->setListIndex(-1);
    m_context.listOver = true;
    if (closesWhenOver()) {
        closeAfterPlaying();
    }
}

bool AdvanceStep::closesWhenOver() const
{
    return m_context.module.playlist.OpenedFromExplorer &&
           m_context.module.optionIsOn(Option::CloseWhenOver);
}

bool AdvanceStep::mayCloseNow() const
{
    return m_readUntil.hasExpired() && !m_context.view->isModalWindowOpen();
}

void AdvanceStep::closeAfterPlaying()
{
    if (mayCloseNow()) {
        m_close.press();
    } else {
        m_context.closeWhenFree = true;
    }
}

void AdvanceStep::closeIfFree()
{
    if (!m_context.closeWhenFree || !mayCloseNow()) {
        return;
    }
    m_context.closeWhenFree = false;
    // Play may have been pressed meanwhile.
    if (!m_context.player().isRunning()) {
        m_close.press();
    }
}

static PlaylistShape allChecked(PlaylistShape shape)
{
    shape.packetChecked = [](Int16) { return true; };
    shape.clipChecked = [](Int16, Int16) { return true; };
    return shape;
}

void AdvanceStep::begin()
{
    const PlaylistShape shape = shapeOf(m_context.module.playlist, *m_context.view);
    if (const auto place = placeToBegin(shape, m_context.cursor())) {
        m_starter.ListClick(place->packet, place->clip);
    }
}

void AdvanceStep::beginAtListCursor()
{
    const TreePlace line = m_context.view->cursorPlace();
    if (line.clip >= 1) {
        return m_starter.startByHand(line.packet, line.clip);
    }
    const PlaylistShape shape = shapeOf(m_context.module.playlist, *m_context.view);
    const auto place = placeToBegin(shape, {line.packet, 0});
    if (place) {
        m_starter.ListClick(place->packet, place->clip);
    } else if (const auto unchecked = placeToBegin(allChecked(shape), {1, 0})) {
        m_starter.startByHand(unchecked->packet, unchecked->clip);
    }
}

void AdvanceStep::lineStep(int direction)
{
    const PlaylistState& playlist = m_context.module.playlist;
    const auto lines = [&](Int16 p) { return Int16(lineCount(playlist.packet(p))); };
    const Cursor here = m_context.cursor();
    if (direction > 0 && m_context.openedMeanwhile) {
        return m_starter.startByHand(here.packet, here.clip); // it is still to come
    }
    const auto place = direction > 0 ? lineBehind(playlist.PlaylistCount, lines, here)
                                     : std::optional(lineBefore(lines, here).value_or(here));
    if (place && place->packet >= 1 && place->clip >= 1) {
        m_starter.startByHand(place->packet, place->clip);
    }
}

void AdvanceStep::lineAgain(PracticeStep& practice)
{
    const Cursor place = m_context.cursor();
    if (m_context.closing || place.packet < 1) {
        return;
    }
    practice.giveUp();
    const bool loaded = !m_context.player().isEmpty() && !m_context.openedMeanwhile;
    if (loaded && (!m_context.isCurrentPacketBraked() || m_context.areBrakesPlaying())) {
        practice.playFromStart();
    } else if (place.clip >= 1) {
        m_starter.startByHand(place.packet, place.clip);
    }
}

bool AdvanceStep::leadsToEndMark(const AdvanceDecision& decision) const
{
    if (decision.what != AdvanceDecision::Start) {
        return false;
    }
    const PlaylistEntry& packet = m_context.module.playlist.packet(decision.cursor.packet);
    return packet.HasBrakes && decision.cursor.clip > 1 &&
           decision.cursor.clip == endMarkOf(packet);
}

void AdvanceStep::next()
{
    if (m_context.cursor().packet < 1) {
        return begin(); // nothing has been started: what was dropped has no current place
    }
    constexpr AdvanceOptions asked = {.nextClip = true, .nextPacket = true, .replay = false};
    AdvanceDecision decision = after(m_context.cursor(), asked);
    if (m_context.player().isEmpty() && leadsToEndMark(decision)) {
        decision = after(decision.cursor, asked); // behind the clip's end nothing is to be heard
    }
    apply(decision);
}

void AdvanceStep::previous()
{
    const PlaylistShape shape = shapeOf(m_context.module.playlist, *m_context.view);
    const Cursor place = previousClip(shape, m_context.cursor());
    if (place.packet >= 1) {
        m_starter.ListClick(place.packet, place.clip);
    }
}

} // namespace orvanta
