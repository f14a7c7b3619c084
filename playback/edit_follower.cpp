#include "playback/edit_follower.h"

#include "playback/brakes.h"

namespace orvanta {

EditFollower::EditFollower(EngineContext& context, ClipStarter& starter)
    : m_context(context),
      m_starter(starter)
{}

static Cursor cursorAt(EditPlace place)
{
    return {Int16(place.packet), Int16(place.line)};
}

static EditPlace placeAt(Cursor cursor)
{
    return {cursor.packet.value(), cursor.clip.value()};
}

/// Whether what is in the player is the clip of this line.
bool EditFollower::isLoaded(EditPlace place) const
{
    const PlaylistState& playlist = m_context.module.playlist;
    if (place.packet < 1 || place.packet > playlist.PlaylistCount.value() ||
        m_context.player().isEmpty()) {
        return false;
    }
    const PlaylistEntry& packet = playlist.packet(place.packet);
    const bool isLine = place.line >= 1 && place.line <= packet.ClipCount.value();
    const bool isText = packet.HasBrakes
                            ? packet.MediaFile == m_context.loaded.text
                            : isLine && packet.clip(place.line).Path == m_context.loaded.text;
    return isText && packet.Folder == m_context.loaded.folder;
}

/// In a packet of brakes, the brake in whose span the player is.
Cursor EditFollower::atPlayer(Cursor cursor) const
{
    const EditPlace place = placeAt(cursor);
    if (!isLoaded({place.packet, 1}) ||
        !m_context.module.playlist.packet(cursor.packet).HasBrakes) {
        return cursor;
    }
    const PlaylistEntry& packet = m_context.module.playlist.packet(cursor.packet);
    return {cursor.packet, brakeAt(packet, m_context.operations.secondsNow())};
}

EditFollower::NewPlace EditFollower::firstOf(int packet) const
{
    const PlaylistState& playlist = m_context.module.playlist;
    if (packet > playlist.PlaylistCount.value()) {
        const int last = playlist.PlaylistCount.value();
        return {{Int16(last), last > 0 ? playlist.packet(last).ClipCount : Int16(0)}};
    }
    const bool hasLines = playlist.packet(packet).ClipCount > 0;
    return {{Int16(packet), Int16(hasLines ? 1 : 0)}, hasLines};
}

EditFollower::NewPlace EditFollower::behindGone(const EditStep& step, Cursor before) const
{
    const EditPlace gone = placeAt(before);
    const std::optional<EditPlace> packet = placeAfter(step, {gone.packet, 0});
    if (!packet) {
        int left = 0; // packets before it
        for (int number = 1; number < gone.packet; ++number) {
            left += placeAfter(step, {number, 0}) ? 1 : 0;
        }
        return firstOf(left + 1);
    }
    int left = 0; // lines before it
    for (int line = 1; line < gone.line; ++line) {
        const std::optional<EditPlace> place = placeAfter(step, {gone.packet, line});
        left += place && place->packet == packet->packet ? 1 : 0;
    }
    if (left < m_context.module.playlist.packet(packet->packet).ClipCount.value()) {
        return {cursorAt({packet->packet, left + 1}), true};
    }
    return left > 0 ? NewPlace{cursorAt({packet->packet, left})} : firstOf(packet->packet + 1);
}

EditFollower::NewPlace EditFollower::placeFor(const EditStep& step, Cursor before) const
{
    const std::optional<EditPlace> mapped = placeAfter(step, placeAt(before));
    const bool isStill =
        mapped && isLoaded(*mapped) && m_context.module.playlist.packet(mapped->packet).HasBrakes;
    if (!isStill && isLoaded(step.after)) { // its first mark, or that taken back
        return {atPlayer(cursorAt(step.after))};
    }
    if (mapped) {
        return {atPlayer(cursorAt(*mapped))};
    }
    const NewPlace behind = behindGone(step, before);
    if (isLoaded({behind.cursor.packet.value(), 1}) &&
        m_context.module.playlist.packet(behind.cursor.packet).HasBrakes) {
        return {atPlayer(behind.cursor)};
    }
    return {behind.cursor, behind.isToCome && !m_context.player().isEmpty()};
}

/// Of the line that plays, as it is now.
void EditFollower::showText()
{
    const Cursor line = m_context.cursor();
    if (m_context.player().isEmpty() || m_context.openedMeanwhile || line.clip < 1) {
        return;
    }
    m_context.view->setClipText(m_context.currentPacket().clip(line.clip).Text);
}

void EditFollower::follow(const EditStep& step)
{
    const Cursor before = m_context.cursor();
    const bool wasToCome = m_context.openedMeanwhile;
    const bool wasOver = m_context.listOver;
    const bool wasWaiting = m_starter.isWaiting();
    m_context.supersede();
    if (before.packet < 1) {
        return m_context.setCursor(before);
    }
    const NewPlace place = placeFor(step, before);
    m_context.setCursor(place.cursor);
    m_context.openedMeanwhile = place.isToCome || wasToCome;
    m_context.listOver = wasOver;
    showText();
    if (wasWaiting) { // for the media of a start, which has just been superseded
        m_starter.ListClick(place.cursor.packet, place.cursor.clip);
    }
}

} // namespace orvanta
