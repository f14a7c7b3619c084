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

enum class PlaybackKey
{
    VolumeUp,
    VolumeDown,
    MinuteBack,
    FullScreenOn,
    SetBookmark,
    GoToBookmark,
    MinuteForward,
    FullScreenOff,
    Pause,
    Run,
    Stop,
    AlwaysOnTop,
};

/// One key: its character, lower case, and whether the video window knows it too.
struct KeyRow
{
    char16_t character;
    PlaybackKey key;
    bool inVideoWindow;
};

/// The whole table, for dispatch, help and tests.
[[nodiscard]] std::span<const KeyRow> playbackKeys();

/// The main window's reading of a typed character: upper case acts like lower case.
[[nodiscard]] std::optional<PlaybackKey> mainWindowKey(QChar typed);
/// The video window's reading: lower case only, and no always-on-top.
[[nodiscard]] std::optional<PlaybackKey> videoWindowKey(QChar typed);

/// The Latin letter on the physical key, for keyboard layouts that type no Latin letters: typed is
/// kept when it is ASCII; scanCode as X11 and Wayland count them (evdev + 8). upperCase: the case
/// that the typed letter had.
[[nodiscard]] QChar latinLetter(QChar typed, quint32 scanCode);

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

    /// Raises 6 when a volume step leaves 16 bits. Seeks that fail are passed over.
    void press(PlaybackKey key);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Asks for a pause when running, else for a run.
    void togglePlay();
    /// Leaves full screen in any state of the player, enters it with any clip.
    void toggleFullScreen();
    void leaveFullScreen();
    /// Serves the request flag: hands VideoState and VideoVolume to the player and clears it.
    void serveRequest();

private:
    void stepVolume(int step);
    void requestState(int state);
    void goToBookmark();
    void switchFullScreenWhileRunning(bool on);
    void switchFullScreen(bool on);
    void handOverState();
    void handOverVolume();

    MediaControl& m_control;
    VideoMirror& m_mirror;
    FullScreenControl& m_screen;
    Seek m_seek;
    bool m_volumeStepped = false;
};

/// What the main window's keys do: they work through the playback operations.
class MainWindowKeys
{
public:
    MainWindowKeys(Module1& module, PlaybackEngine& engine, PlaybackView& view,
                   VideoWindowKeys& videoKeys);

    /// Seeks that fail are passed over. AlwaysOnTop is the window's own affair: returns false for
    /// it, true for every key that was served here.
    bool press(PlaybackKey key);
    /// Seconds, for the arrow keys.
    void seekBy(double seconds);
    /// Play when paused or stopped, pause when running.
    void togglePlay();

private:
    void poll();
    void stepVolume(int step);
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
