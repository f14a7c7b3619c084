// What the parts of the playback engine share.
#pragma once

#include "model/module1.h"
#include "platform/process/media_locator.h"
#include "playback/advance.h"
#include "playback/playback_log.h"
#include "playback/playback_operations.h"
#include "playback/playback_view.h"

#include <functional>
#include <set>
#include <utility>

namespace orvanta {

/// Where the file in the player came from, in the words of its packet.
struct LoadedMedia
{
    QString file;   // as given to the control
    QString text;   // as written in the packet
    QString folder; // of the packet
};

/// Packet and clip of what could not be opened; clip 0: the one file of a brake packet.
using FailedMedia = std::set<std::pair<int, int>>;

/// Interface thread only. The view is attached before the first handler runs. The player is known
/// by its snapshot and changed through the operations, never otherwise.
struct EngineContext
{
    EngineContext(Module1& sharedState, MediaControl& control, VideoWindow& videoWindow);

    Module1& module;
    VideoWindow& video;
    PlaybackOperations operations;
    PlaybackView* view = nullptr;
    PlaybackLog log;
    LoadedMedia loaded;
    /// Looks for the file that a path text means, as far as that can be said at once.
    std::function<QString(const QString& pathText, const LessonFolders& folders)> findFile;
    /// For who shows the current clip elsewhere.
    std::function<void()> onCursorMoved = [] {};
    /// A person has asked for a stop: a lesson that waits does not go on.
    std::function<void()> onStopAsked = [] {};
    /// Another line is about to begin: what was asked of this one is done now.
    std::function<void()> onLineLeft = [] {};
    /// Something else begins: what waits has nothing to wait for.
    std::function<void()> onSuperseded = [] {};
    /// What is open is about to be replaced.
    std::function<void()> onReplacing = [] {};
    /// The last line there is has been played.
    std::function<void()> onLessonOver = [] {};
    /// A launch asks for the lesson that was on last.
    std::function<void()> onContinueAsked = [] {};
    FailedMedia failedMedia;      // in this generation
    bool startFailed = false;     // the last start left the player empty: the tick advances again
    bool closeWhenFree = false;   // playback is over: the program ends once no window waits
    bool openedMeanwhile = false; // while a clip played on: the current place is still to come
    bool listOver = false;        // the list has come to its end, and nothing became current since
    bool closing = false;         // the program ends; no handler begins anything

    /// Every start of a clip, change of the playlist and close begins a generation: what waits is
    /// outdated, and nothing has failed but what a start takes along from the one that failed
    /// before it.
    void supersede(FailedMedia takenAlong = {});
    [[nodiscard]] quint64 generation() const { return m_generation; }

    [[nodiscard]] const PlayerSnapshot& player() const { return operations.player(); }

    [[nodiscard]] Cursor cursor() const;
    void setCursor(Cursor cursor);
    /// The same for a place that is still to come: what the player has, if anything, stays what is
    /// on.
    void setCursorAhead(Cursor cursor);
    /// Line 1 of what was opened, still to come; where it is the brakes of the very clip that
    /// plays, the brake that it is in is on.
    void setCursorToOpened();
    /// The text of the line that is on, also when something else is open by now. Raises 9 when no
    /// line was current.
    [[nodiscard]] QString playingText() const;
    /// Raises 9 when no packet is current.
    [[nodiscard]] const PlaylistEntry& currentPacket() const;
    [[nodiscard]] bool isCurrentPacketBraked() const;
    /// The current packet has brakes, and its media file is what was loaded last.
    [[nodiscard]] bool areBrakesLoaded() const;
    /// The same, and the player still has it.
    [[nodiscard]] bool areBrakesPlaying() const;
    /// Where the packet's texts belong: its folder, for loose clips that of what was opened last.
    [[nodiscard]] LessonFolders foldersOf(const PlaylistEntry& packet) const;
    /// Moves the list's cursor to line q below packet p's header. Returns the line, -1 for none.
    int moveListCursor(Cursor place);

private:
    void moveCursor(Cursor cursor, bool isAhead);

    quint64 m_generation = 0;
    QString m_playingText; // of the line that was current before something else was opened
};

/// Tells after a wait in the event loop whether its caller's work is still wanted.
class Superseded
{
public:
    explicit Superseded(const EngineContext& context)
        : m_context(context),
          m_generation(context.generation())
    {}
    [[nodiscard]] bool operator()() const
    {
        return m_context.closing || m_context.generation() != m_generation;
    }

private:
    const EngineContext& m_context;
    quint64 m_generation;
};

} // namespace orvanta
