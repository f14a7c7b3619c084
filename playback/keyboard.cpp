#include "playback/keyboard.h"

#include "core/error_boundary.h"
#include "core/numbers.h"
#include "playback/volume.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMinute = 60.0; // seconds
constexpr int kVolumeStep = 5;   // on the volume slider's scale

constexpr std::array kKeys{
    KeyRow{u'+', PlaybackKey::VolumeUp, true},      KeyRow{u'-', PlaybackKey::VolumeDown, true},
    KeyRow{u'b', PlaybackKey::MinuteBack, true},    KeyRow{u'f', PlaybackKey::FullScreenOn, true},
    KeyRow{u'k', PlaybackKey::SetBookmark, true},   KeyRow{u'l', PlaybackKey::GoToBookmark, true},
    KeyRow{u'm', PlaybackKey::MinuteForward, true}, KeyRow{u'n', PlaybackKey::FullScreenOff, true},
    KeyRow{u'p', PlaybackKey::Pause, true},         KeyRow{u'r', PlaybackKey::Run, true},
    KeyRow{u's', PlaybackKey::Stop, true},          KeyRow{u't', PlaybackKey::AlwaysOnTop, false},
};

/// Scan codes of the keys that act, where a Latin keyboard has these letters.
struct PhysicalKey
{
    quint32 scanCode;
    char16_t letter;
};
constexpr std::array kPhysicalKeys{
    PhysicalKey{24, u'q'}, PhysicalKey{27, u'r'}, PhysicalKey{28, u't'}, PhysicalKey{32, u'o'},
    PhysicalKey{33, u'p'}, PhysicalKey{39, u's'}, PhysicalKey{41, u'f'}, PhysicalKey{45, u'k'},
    PhysicalKey{46, u'l'}, PhysicalKey{56, u'b'}, PhysicalKey{57, u'n'}, PhysicalKey{58, u'm'},
};

std::optional<KeyRow> rowOf(QChar character)
{
    const auto row = std::ranges::find(kKeys, character.unicode(), &KeyRow::character);
    return row == kKeys.end() ? std::nullopt : std::optional(*row);
}

Int16 clampedVolume(Int16 volume)
{
    return std::clamp(volume.value(), 0, 100);
}

} // namespace

std::span<const KeyRow> playbackKeys()
{
    return kKeys;
}

std::optional<PlaybackKey> mainWindowKey(QChar typed)
{
    const auto row = rowOf(typed.toLower());
    return row ? std::optional(row->key) : std::nullopt;
}

std::optional<PlaybackKey> videoWindowKey(QChar typed)
{
    const auto row = rowOf(typed);
    return row && row->inVideoWindow ? std::optional(row->key) : std::nullopt;
}

QChar latinLetter(QChar typed, quint32 scanCode)
{
    if (typed.unicode() < 128) {
        return typed;
    }
    const auto key = std::ranges::find(kPhysicalKeys, scanCode, &PhysicalKey::scanCode);
    if (key == kPhysicalKeys.end()) {
        return typed;
    }
    return typed.isUpper() ? QChar(key->letter).toUpper() : QChar(key->letter);
}

VideoWindowKeys::VideoWindowKeys(MediaControl& control, VideoMirror& mirror,
                                 FullScreenControl& screen, Seek seek)
    : m_control(control),
      m_mirror(mirror),
      m_screen(screen),
      m_seek(std::move(seek))
{}

void VideoWindowKeys::press(PlaybackKey key)
{
    switch (key) {
    case PlaybackKey::VolumeUp:
        return stepVolume(kVolumeStep);
    case PlaybackKey::VolumeDown:
        return stepVolume(-kVolumeStep);
    case PlaybackKey::MinuteBack:
        return seekBy(-kMinute);
    case PlaybackKey::MinuteForward:
        return seekBy(kMinute);
    case PlaybackKey::FullScreenOn:
        return switchFullScreenWhileRunning(true);
    case PlaybackKey::FullScreenOff:
        return switchFullScreenWhileRunning(false);
    case PlaybackKey::SetBookmark:
        m_mirror.VideoBookmark = decimalText(m_control.CurrentPosition());
        return;
    case PlaybackKey::GoToBookmark:
        return trapped("video window, go to bookmark", [this] { goToBookmark(); });
    case PlaybackKey::Pause:
        return requestState(MediaControl::Paused);
    case PlaybackKey::Run:
        return requestState(MediaControl::Running);
    case PlaybackKey::Stop:
        return requestState(MediaControl::Stopped);
    case PlaybackKey::AlwaysOnTop:
        return;
    }
}

void VideoWindowKeys::toggleFullScreen()
{
    if (m_screen.isFullScreen()) {
        switchFullScreen(false);
    } else if (m_control.CurrentState() != MediaControl::NotLoaded) {
        switchFullScreen(true);
    }
}

void VideoWindowKeys::leaveFullScreen()
{
    if (m_screen.isFullScreen()) {
        switchFullScreen(false);
    }
}

void VideoWindowKeys::togglePlay()
{
    const bool running = m_control.CurrentState() == MediaControl::Running;
    requestState(running ? MediaControl::Paused : MediaControl::Running);
}

void VideoWindowKeys::serveRequest()
{
    if (m_mirror.RequestPending.take()) {
        handOverState();
        handOverVolume();
    }
}

// A state that the player is in already is not asked for again: Stop would lose the position.
void VideoWindowKeys::handOverState()
{
    if (m_mirror.VideoState == m_control.CurrentState()) {
        return;
    }
    switch (m_mirror.VideoState) {
    case MediaControl::Stopped:
        return m_control.Stop();
    case MediaControl::Paused:
        return m_control.Pause();
    case MediaControl::Running:
        return m_control.Run();
    default:
        return;
    }
}

// The stored volume may lie between two places of the slider; only a step replaces it.
void VideoWindowKeys::handOverVolume()
{
    if (std::exchange(m_volumeStepped, false)) {
        m_control.setVolume(controlVolume(volumeOfSlider(m_mirror.VideoVolume)));
    }
}

void VideoWindowKeys::stepVolume(int step)
{
    m_mirror.VideoVolume = clampedVolume(m_mirror.VideoVolume + step);
    m_volumeStepped = true;
    m_mirror.RequestPending = true;
}

void VideoWindowKeys::requestState(int state)
{
    if (m_control.CurrentState() == MediaControl::NotLoaded) {
        return;
    }
    m_mirror.VideoState = state;
    m_mirror.RequestPending = true;
}

void VideoWindowKeys::seekBy(double seconds)
{
    trapped("video window, seek key", [&] {
        if (m_control.CurrentState() != MediaControl::NotLoaded) {
            m_seek(m_control.CurrentPosition() + seconds);
        }
    });
}

void VideoWindowKeys::goToBookmark()
{
    if (m_control.CurrentState() != MediaControl::Running) {
        return;
    }
    const double bookmark = decimalValue(m_mirror.VideoBookmark);
    m_control.Pause();
    m_seek(bookmark);
    m_control.Run();
    m_seek(bookmark);
}

void VideoWindowKeys::switchFullScreenWhileRunning(bool on)
{
    if (m_control.CurrentState() == MediaControl::Running && m_screen.isFullScreen() != on) {
        switchFullScreen(on);
    }
}

/// A running clip stands still while its window changes; the mode is confirmed afterwards.
void VideoWindowKeys::switchFullScreen(bool on)
{
    const bool running = m_control.CurrentState() == MediaControl::Running;
    if (running) {
        m_control.Pause();
    }
    m_screen.setFullScreen(on);
    if (running) {
        m_control.Run();
        m_screen.setFullScreen(on);
    }
}

MainWindowKeys::MainWindowKeys(Module1& module, PlaybackEngine& engine, PlaybackView& view,
                               VideoWindowKeys& videoKeys)
    : m_module(module),
      m_engine(engine),
      m_view(view),
      m_videoKeys(videoKeys)
{}

// Keys come faster than ticks: each works on the player as it is now, not as the last tick saw it.
void MainWindowKeys::poll()
{
    trapped("poll for a key", [this] { m_engine.operations().PollPlayer(); });
}

bool MainWindowKeys::press(PlaybackKey key)
{
    poll();
    switch (key) {
    case PlaybackKey::VolumeUp:
        stepVolume(kVolumeStep);
        return true;
    case PlaybackKey::VolumeDown:
        stepVolume(-kVolumeStep);
        return true;
    case PlaybackKey::MinuteBack:
        seekBy(-kMinute);
        return true;
    case PlaybackKey::MinuteForward:
        seekBy(kMinute);
        return true;
    case PlaybackKey::FullScreenOn:
    case PlaybackKey::FullScreenOff:
        m_videoKeys.press(key);
        return true;
    case PlaybackKey::SetBookmark:
        trapped("bookmark key", [this] { setBookmark(); });
        return true;
    case PlaybackKey::GoToBookmark:
        trapped("go to bookmark key", [this] { goToBookmark(); });
        return true;
    case PlaybackKey::Pause:
        m_engine.operations().PauseIfRunning();
        return true;
    case PlaybackKey::Run:
        m_engine.operations().PlayerRun();
        return true;
    case PlaybackKey::Stop:
        m_engine.operations().StopIfRunning();
        return true;
    case PlaybackKey::AlwaysOnTop:
        return false;
    }
    return false;
}

void MainWindowKeys::seekBy(double seconds)
{
    poll();
    trapped("seek key", [&] {
        m_engine.seekTo(decimalValue(m_engine.operations().GetPlayerPosition()) + seconds);
    });
}

void MainWindowKeys::togglePlay()
{
    poll();
    if (m_engine.operations().GetPlayerState() == MediaControl::Running) {
        m_engine.pressPause();
    } else {
        m_engine.pressPlay();
    }
}

void MainWindowKeys::stepVolume(int step)
{
    const Int16 volume = clampedVolume(m_module.playback.CachedVolume + step);
    m_view.setVolumeSlider(volume);
    m_engine.volumeMoved(volume);
}

void MainWindowKeys::setBookmark()
{
    (void)currentText(); // without a clip there is no sign either
    m_engine.keepPosition();
}

void MainWindowKeys::goToBookmark()
{
    auto& operations = m_engine.operations();
    if (operations.GetPlayerState() == MediaControl::Running) {
        operations.PauseIfRunning();
        seekToSavedPosition();
        operations.PlayerRun();
    } else {
        operations.PlayerRun();
        seekToSavedPosition();
    }
}

void MainWindowKeys::seekToSavedPosition()
{
    resumeNext("saved position", [this] {
        m_engine.seekTo(decimalValue(m_module.settings().position(currentText())));
    });
}

QString MainWindowKeys::currentText() const
{
    const PlaylistState& playlist = m_module.playlist;
    return playlist.packet(playlist.CurrentPacket).clip(playlist.CurrentClip).Text;
}

bool pressPlayerKey(PlaybackEngine& engine, CommonKey key)
{
    switch (key) {
    case CommonKey::Quit:
        engine.closeProgram();
        return true;
    case CommonKey::Stop:
        engine.pressStop();
        return true;
    case CommonKey::NextClip:
        engine.nextChecked();
        return true;
    case CommonKey::PreviousClip:
        engine.previousChecked();
        return true;
    default:
        return false;
    }
}

} // namespace orvanta
