// The keys that steer playback: one table for both windows, and what each window does with a key.
#pragma once

#include "playback/playback_engine.h"
#include "playback/typed_key.h"

#include <QChar>

#include <functional>
#include <optional>
#include <span>
#include <utility>

namespace orvanta {

class MainWindowKeys;
class VideoWindowKeys;

/// One key: its character, lower case, and what it does in each window.
struct KeyRow
{
    char16_t character;
    void (*inMainWindow)(MainWindowKeys& keys);   // null: the window's own affair
    void (*inVideoWindow)(VideoWindowKeys& keys); // null: no key there

    friend bool operator==(const KeyRow&, const KeyRow&) = default;
};

/// The whole table, for dispatch, help and tests.
[[nodiscard]] std::span<const KeyRow> playbackKeys();

/// The main window's reading of a typed character: upper case acts like lower case.
[[nodiscard]] std::optional<KeyRow> mainWindowKey(QChar typed);
/// The video window's reading: lower case only, and no always-on-top.
[[nodiscard]] std::optional<KeyRow> videoWindowKey(QChar typed);

/// What the keys do that are the same in every window: Quit, Stop, NextClip and PreviousClip. False
/// for the others.
bool pressPlayerKey(PlaybackEngine& engine, CommonKey key);

/// Full-screen mode of the player, and its window's always-on-top order.
class FullScreenControl
{
public:
    virtual ~FullScreenControl() = default;
    [[nodiscard]] virtual bool isFullScreen() const = 0;
    /// Switches the mode; the mouse cursor hides with it while a picture shows.
    virtual void setFullScreen(bool on) = 0;
};

/// What the video window's keys do: they work on the control and on the mirror fields.
class VideoWindowKeys
{
public:
    /// Seconds; where a user's seek goes. Brakes must follow it, so it goes to whoever knows them.
    using Seek = std::function<void(double)>;

    VideoWindowKeys(MediaControl& control, VideoMirror& mirror, FullScreenControl& screen,
                    Seek seek);

    /// For the window: the key of the bookmark was pressed in a clip that has none.
    void whenBookmarkIsMissing(std::function<void()> say) { m_bookmarkIsMissing = std::move(say); }

    /// Raises 6 when a volume step leaves 16 bits. Seeks that fail are passed over.
    void press(const KeyRow& key);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Asks for a pause when running, else for a run.
    void togglePlay();
    /// Leaves full screen in any state of the player, enters it with any clip.
    void toggleFullScreen();
    void leaveFullScreen();
    /// Does nothing in any other state of the player.
    void switchFullScreenWhileRunning(bool on);
    /// Serves the request flag: hands VideoState and VideoVolume to the player and clears it.
    void serveRequest();

private:
    friend struct KeyTable;
    void stepVolume(int step);
    void requestState(MediaControl::State state);
    void setBookmark();
    [[nodiscard]] bool hasBookmark() const;
    void goToBookmark();
    void switchFullScreen(bool on);
    void handOverState();
    void handOverVolume();

    MediaControl& m_control;
    VideoMirror& m_mirror;
    FullScreenControl& m_screen;
    Seek m_seek;
    std::function<void()> m_bookmarkIsMissing = [] {};
    bool m_volumeStepped = false;
};

/// What the main window's keys do: they work through the playback operations.
class MainWindowKeys
{
public:
    MainWindowKeys(Module1& module, PlaybackEngine& engine, PlaybackView& view,
                   VideoWindowKeys& videoKeys);

    /// Seeks that fail are passed over. False when the key is the window's own affair.
    bool press(const KeyRow& key);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Play when paused or stopped, pause when running.
    void togglePlay();

private:
    friend struct KeyTable;
    void poll();
    void stepVolume(int step);
    void switchFullScreenWhileRunning(bool on) { m_videoKeys.switchFullScreenWhileRunning(on); }
    void setBookmark();
    void goToBookmark();
    void seekToSavedPosition();
    [[nodiscard]] QString currentText() const;

    Module1& m_module;
    PlaybackEngine& m_engine;
    PlaybackView& m_view;
    VideoWindowKeys& m_videoKeys;
};

} // namespace orvanta
