// What the playback engine, the keys and the media controls need of the main window.
#pragma once

#include "model/tree_lines.h"

#include <QString>

#include <functional>

namespace orvanta {

/// Looks of the transport buttons. Every change of an enabled state goes with an exchange of the
/// button's two pictures, so that looks and state stay paired.
struct TransportLooks
{
    bool playEnabled = true;
    bool pauseEnabled = false;
    bool playSwapped = false;  // Play shows the picture of Image15
    bool pauseSwapped = false; // Pause shows the picture of Image17

    friend bool operator==(const TransportLooks&, const TransportLooks&) = default;
};

/// The sign of the line that the player is at.
enum class PlayingSign
{
    None, // nothing is loaded, or it is stopped
    Playing,
    Paused,
};

/// Where it stands: a packet and its clip or brake; clip 0, the packet's own line, before its first
/// brake.
struct PlayingPlace
{
    Int16 packet;
    Int16 clip;
    PlayingSign sign = PlayingSign::None;

    friend bool operator==(const PlayingPlace&, const PlayingPlace&) = default;
};

/// The main window as they see it. Interface thread only.
class PlaybackView
{
public:
    virtual ~PlaybackView() = default;

    /// Window state 0: not minimised. A hidden window also counts as normal.
    [[nodiscard]] virtual bool isWindowNormal() const = 0;
    /// The user is holding the position slider.
    [[nodiscard]] virtual bool isSliderHeld() const = 0;

    virtual void setCurrentTime(const QString& text) = 0; // Label1
    virtual void setClipLength(const QString& text) = 0;  // Label2
    virtual void setFindText(const QString& text) = 0;    // Text1
    virtual void setClipText(const QString& text) = 0;    // Text2
    virtual void moveSlider(Int16 percent) = 0;           // Slider1, without looking like a user
    virtual void setVolumeSlider(Int16 value) = 0;        // Slider2, without looking like a user
    virtual void showTransport(const TransportLooks& looks) = 0; // Image5, Image3

    /// Asked at each tick: a place that is shown already must cost nothing. A list that is rebuilt
    /// shows none.
    virtual void showPlaying(const PlayingPlace& /*place*/) {} // List1

    virtual void RebuildTree() = 0;
    virtual void clearList() = 0;
    /// Line index of packet p's header in the list as shown; -1 when there is none.
    [[nodiscard]] virtual int headerLineOf(Int16 p) const = 0;
    [[nodiscard]] virtual int lineCount() const = 0;
    virtual void setListIndex(int line) = 0; // -1: no line is current
    /// Packet and clip of the line under the list's cursor; clip 0 on a packet's own line, packet 0
    /// without a cursor.
    [[nodiscard]] virtual TreePlace cursorPlace() const = 0;
    [[nodiscard]] virtual bool isLineChecked(int line) const = 0;
    virtual void checkLine(int line) = 0;

    virtual void showMainWindow() = 0;
    virtual void hideMainWindow() = 0;
    virtual void enableTimer2(int line) = 0; // marks this line as selected 100 ms later
    virtual void enableTimer3() = 0;         // brings the window to the front 200 ms later
    virtual void bringMainWindowToFront() = 0;
    /// The bookmark sign Form4 at the top left of the picture's screen for a second.
    virtual void showBookmarkSign() = 0;
    /// A window of the program waits for an answer: an editor, a picker.
    [[nodiscard]] virtual bool isModalWindowOpen() const { return false; }
    /// Closes it, and those below it, without an answer. Who opened them goes on once the handler
    /// that calls this has returned.
    virtual void cancelModalWindows() {}
    /// Runs work that may be long: a busy cursor shows and the window stays painted, but no event
    /// is served. The work may use the shared state, and no windows. What it raises is raised here.
    virtual void runBusy(const std::function<void()>& work) { work(); }
    /// Ends the program: unloads main window, tray window and video window, in this order.
    virtual void unloadAll() = 0;
};

} // namespace orvanta
