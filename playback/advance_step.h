// Moving on after a clip, to the next or to the previous one.
#pragma once

#include "playback/clip_starter.h"
#include "playback/close_sequence.h"

#include <QDeadlineTimer>

namespace orvanta {

class PracticeStep;

class AdvanceStep
{
public:
    AdvanceStep(EngineContext& context, TransportButtons& transport, ClipStarter& starter,
                CloseSequence& close);

    /// One pass. Raises 9 when no packet is current.
    void run();
    /// The place that run() would start; none where it starts nothing.
    [[nodiscard]] std::optional<Cursor> placeAfterClip() const;
    /// The last start left the player empty: the same, but over after one whole pass in which
    /// nothing could be opened.
    void runAfterFailure();
    /// Starts the current place when it is checked, else what comes after it.
    void begin();
    /// Starts the line under the list's cursor, else the first checked place, else the first.
    void beginAtListCursor();
    /// To the next or previous checked place, whatever the options say.
    void next();
    void previous();
    /// To the line behind (1) or before (-1), checked or not; an end mark is none. The first line
    /// begins again where there is none before it.
    void lineStep(int direction);
    /// The current line from its start, loaded or not; a wait after it is given up.
    void lineAgain(PracticeStep& practice);
    /// The player rests behind the last place: no line is current, and the program ends where the
    /// option says so.
    void listIsOver();
    /// Playback is over and was to end the program, but a window waited for an answer, or the name
    /// of what could not be played is still to be read: ends it once neither is so.
    void closeIfFree();
    /// Somebody has given the program something to play: it stays.
    void callClosingOff() { m_context.closeWhenFree = false; }

private:
    [[nodiscard]] AdvanceDecision after(Cursor from, const AdvanceOptions& options) const;
    [[nodiscard]] AdvanceDecision decide(Cursor from) const;
    [[nodiscard]] bool leadsToEndMark(const AdvanceDecision& decision) const;
    void apply(const AdvanceDecision& decision, FailedMedia failed = {});
    void playbackIsOver(Cursor rest);
    [[nodiscard]] bool closesWhenOver() const;
    [[nodiscard]] bool mayCloseNow() const;
    void closeAfterPlaying();
    [[nodiscard]] std::pair<int, int> mediaAt(Cursor place) const;
    void sayUnplayable();

    EngineContext& m_context;
    TransportButtons& m_transport;
    ClipStarter& m_starter;
    CloseSequence& m_close;
    QDeadlineTimer m_readUntil; // what could not be played is named until then
};

} // namespace orvanta
