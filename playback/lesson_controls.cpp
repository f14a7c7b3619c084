#include "playback/lesson_controls.h"

#include <algorithm>
#include <utility>

namespace orvanta {

LessonControls::LessonControls(EngineContext& context, ClipStarter& starter,
                               std::function<void(const std::function<void()>&)> enter,
                               std::function<void()> takePlaylist)
    : m_context(context),
      m_starter(starter),
      m_follower(context, starter),
      m_enter(std::move(enter)),
      m_takePlaylist(std::move(takePlaylist))
{
    context.onLessonOver = [this] { Q_EMIT over(); };
    context.onReplacing = [this] { leave(); };
    context.onContinueAsked = [this] { Q_EMIT continueAsked(); };
}

void LessonControls::leave()
{
    Q_EMIT replacing();
    Q_EMIT left();
}

LessonLine LessonControls::line() const
{
    return m_context.openedMeanwhile ? LessonLine{} : currentLine(m_context.module.playlist);
}

std::vector<LessonMark> LessonControls::marks() const
{
    return m_context.openedMeanwhile ? std::vector<LessonMark>{}
                                     : currentMarks(m_context.module.playlist);
}

std::optional<LessonPlace> LessonControls::place() const
{
    const PlaylistState& playlist = m_context.module.playlist;
    const Cursor line = m_context.cursor();
    if (line.packet < 1 || line.packet > playlist.PlaylistCount || m_context.openedMeanwhile) {
        return std::nullopt;
    }
    const bool inMedia = !m_context.isCurrentPacketBraked() || m_context.areBrakesPlaying();
    const double start = startOfLine(playlist, line.packet, line.clip);
    const double seconds = inMedia ? m_context.operations.secondsNow() - start : 0;
    return LessonPlace{line.packet, line.clip, std::max(seconds, 0.0)};
}

void LessonControls::playlistContinued(const LessonPlace& place)
{
    m_takePlaylist();
    const PlaylistState& playlist = m_context.module.playlist;
    if (playlist.entryCount() == 0) {
        return;
    }
    const Cursor line = {place.packet, place.clip};
    m_starter.beginAt(line, startOfLine(playlist, line.packet, line.clip) + place.seconds);
    rest(line);
    if (m_context.module.optionIsOn(Option::StartPlaying)) {
        m_enter([&] { m_starter.startByHand(line.packet, line.clip); });
    }
}

void LessonControls::edited(const EditStep& step)
{
    m_enter([&] { m_follower.follow(step); });
}

/// What still plays from before stays what plays.
void LessonControls::rest(Cursor line)
{
    m_context.setCursorAhead(line);
    m_context.moveListCursor(line);
}

} // namespace orvanta
