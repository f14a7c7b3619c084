// ListClick: the one procedure that makes a clip or brake current and plays it.
#pragma once

#include "playback/engine_context.h"
#include "playback/transport_buttons.h"

#include <optional>

namespace orvanta {

class ClipStarter
{
public:
    ClipStarter(EngineContext& context, TransportButtons& transport);

    /// Clip or brake q of packet p. Errors are passed over: cursor, indices and text move even when
    /// nothing can be opened. May wait in the event loop for the media of a brake packet; a start
    /// that is superseded meanwhile leaves everything to its successor.
    /// failed: what could not be opened before, when this start is the next try.
    void ListClick(Int16 p, Int16 q, FailedMedia failed = {});

    /// Brake q of packet p was reached by playing: the same, but the player runs on through it. It
    /// is sent back only when it has gone well past the brake.
    void reachBrake(Int16 p, Int16 q);

    /// Takes the paused player to the time of a brake that will be reached by playing: then that
    /// takes no seek any more.
    void standAtBrake(double seconds);
    /// The player has run since.
    void leaveBrake() { m_standsAt.reset(); }

    /// The same, asked for by hand: where nothing can be opened, no other clip starts instead.
    void startByHand(Int16 p, Int16 q);

    /// The next start, if it is of this place and what is open stays open, begins here: seconds of
    /// the media.
    void beginAt(Cursor place, double seconds);

    /// The file that a start of this clip would open, as far as that can be said at once; empty
    /// where it would do more than open it.
    [[nodiscard]] QString fileOf(Cursor place) const;

    /// The player could not open what it was given.
    void openingFailed();
    /// A start waits in the event loop for its media.
    [[nodiscard]] bool isWaiting() const { return m_waiting > 0; }

private:
    enum Way
    {
        ByItself,
        ByHand,
        ByPlaying, // a brake was reached
    };

    /// Where a start is to begin, seconds of the media.
    struct Beginning
    {
        Cursor place;
        double seconds = 0;
        int revision = -1; // of the playlist; -1: nowhere in particular
    };

    void start(Cursor place, Way way, FailedMedia failed);
    [[nodiscard]] std::optional<double> takeBeginning(Cursor place);
    void noteFailure();
    void showPicture(Int16 p);
    void handBookmarkOver();
    [[nodiscard]] bool startMedia(Cursor place, Way way);
    [[nodiscard]] QString located(const QString& text, const LessonFolders& folders);
    [[nodiscard]] bool startClip(Cursor place);
    [[nodiscard]] bool startBrake(Cursor place, Way way);
    void goToBrake(const QString& time);
    [[nodiscard]] bool isSoonAfter(const QString& time) const;
    [[nodiscard]] bool takeStanding(const QString& time);
    [[nodiscard]] bool mustLoad(const QString& file, Int16 p) const;
    [[nodiscard]] bool waitUntilReady();
    void open(const QString& file, const QString& text, const QString& folder);
    [[nodiscard]] bool mustCopy(const QString& text, const QString& file) const;
    [[nodiscard]] QString playableFile(const QString& text, const QString& file) const;
    void makeCurrent(Cursor place, Way way);
    void logStart(Cursor place);

    EngineContext& m_context;
    TransportButtons& m_transport;
    Beginning m_beginning;
    std::optional<double> m_standsAt; // seconds
    Way m_way = ByItself;             // of the newest start
    int m_waiting = 0;                // one start may come while another waits
    bool m_openingFailed = false;     // of what was loaded last
};

} // namespace orvanta
