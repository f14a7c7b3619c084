// The commands that steer playback: what each of the two windows does with one.
#pragma once

#include "playback/commands.h"
#include "playback/playback_engine.h"

#include <functional>

namespace orvanta {

class MainWindowKeys;
class VideoWindowKeys;

/// What is the same wherever it is asked for: Quit, StopButton, NextClip and PreviousClip. False
/// for the others.
bool carryOutInPlayer(PlaybackEngine& engine, Command command);

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

    /// Raises 6 when a volume step leaves 16 bits. Seeks that fail are passed over. False when the
    /// command is not one of the player's.
    bool press(Command command);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Asks for a pause when running, else for a run.
    void togglePlay();
    /// Leaves full screen in any state of the player, enters it with any clip.
    void toggleFullScreen();
    void leaveFullScreen();
    [[nodiscard]] bool isFullScreen() const { return m_screen.isFullScreen(); }
    /// Does nothing in any other state of the player.
    void switchFullScreenWhileRunning(bool on);
    /// Serves the request flag: hands VideoState and VideoVolume to the player and clears it.
    void serveRequest();

private:
    friend struct CommandActions;
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

    /// Seeks that fail are passed over. False when the command is the window's own affair.
    bool press(Command command);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Play when paused or stopped, pause when running.
    void togglePlay();
    /// Of the current clip, seconds as text; empty for none. Raises 9 when no clip is current.
    [[nodiscard]] QString savedPosition() const;

private:
    friend struct CommandActions;
    void poll();
    void stepVolume(int step);
    void switchFullScreenWhileRunning(bool on) { m_videoKeys.switchFullScreenWhileRunning(on); }
    void toggleFullScreen() { m_videoKeys.toggleFullScreen(); }
    void leaveFullScreen() { m_videoKeys.leaveFullScreen(); }
    void stop();
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
