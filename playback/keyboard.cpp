#include "playback/keyboard.h"

#include "core/error_boundary.h"
#include "core/numbers.h"
#include "playback/practice_controls.h"
#include "playback/typed_key.h"
#include "playback/volume.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kMinute = 60.0; // seconds
constexpr int kVolumeStep = 5;   // on the volume slider's scale

namespace {

/// What a command does in each window.
struct ActionRow
{
    Command command;
    void (*inMainWindow)(MainWindowKeys& keys);
    void (*inVideoWindow)(VideoWindowKeys& keys);
};

} // namespace

template <typename Action> static constexpr ActionRow inBoth(Command command, Action action)
{
    return {command, action, action};
}

/// A friend of both windows' keys: a command that needs no more than they have is one line here.
struct CommandActions
{
    using Main = MainWindowKeys;
    using Video = VideoWindowKeys;

    static constexpr std::array rows{
        inBoth(Command::TogglePlay, [](auto& keys) { keys.togglePlay(); }),
        ActionRow{Command::Play, [](Main& keys) { keys.m_engine.operations().PlayerRun(); },
                  [](Video& keys) { keys.requestState(MediaControl::Running); }},
        ActionRow{Command::Pause, [](Main& keys) { keys.m_engine.operations().PauseIfRunning(); },
                  [](Video& keys) { keys.requestState(MediaControl::Paused); }},
        ActionRow{Command::Stop, [](Main& keys) { keys.stop(); },
                  [](Video& keys) { keys.requestState(MediaControl::Stopped); }},
        inBoth(Command::StepBack, [](auto& keys) { keys.seekBy(-kKeyStep); }),
        inBoth(Command::StepForward, [](auto& keys) { keys.seekBy(kKeyStep); }),
        inBoth(Command::MinuteBack, [](auto& keys) { keys.seekBy(-kMinute); }),
        inBoth(Command::MinuteForward, [](auto& keys) { keys.seekBy(kMinute); }),
        inBoth(Command::VolumeUp, [](auto& keys) { keys.stepVolume(kVolumeStep); }),
        inBoth(Command::VolumeDown, [](auto& keys) { keys.stepVolume(-kVolumeStep); }),
        inBoth(Command::SetBookmark, [](auto& keys) { keys.setBookmark(); }),
        inBoth(Command::GoToBookmark, [](auto& keys) { keys.goToBookmark(); }),
        inBoth(Command::FillScreen, [](auto& keys) { keys.switchFullScreenWhileRunning(true); }),
        inBoth(Command::LeaveScreen, [](auto& keys) { keys.switchFullScreenWhileRunning(false); }),
        inBoth(Command::ToggleFullScreen, [](auto& keys) { keys.toggleFullScreen(); }),
        inBoth(Command::LeaveFullScreen, [](auto& keys) { keys.leaveFullScreen(); }),
    };

    [[nodiscard]] static const ActionRow* of(Command command)
    {
        const auto row = std::ranges::find(rows, command, &ActionRow::command);
        return row == rows.end() ? nullptr : &*row;
    }
};

static Int16 clampedVolume(Int16 volume)
{
    return std::clamp(volume.value(), 0, 100);
}

VideoWindowKeys::VideoWindowKeys(MediaControl& control, VideoMirror& mirror,
                                 FullScreenControl& screen, Seek seek)
    : m_control(control),
      m_mirror(mirror),
      m_screen(screen),
      m_seek(std::move(seek))
{}

bool VideoWindowKeys::press(Command command)
{
    const ActionRow* action = CommandActions::of(command);
    if (action != nullptr) {
        action->inVideoWindow(*this);
    }
    return action != nullptr;
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

void VideoWindowKeys::requestState(MediaControl::State state)
{
    if (m_control.CurrentState() != MediaControl::NotLoaded) {
        m_mirror.VideoState = state;
        m_mirror.RequestPending = true;
    }
}

void VideoWindowKeys::seekBy(double seconds)
{
    trapped("video window, seek key", [&] {
        if (m_control.CurrentState() != MediaControl::NotLoaded) {
            m_seek(m_control.CurrentPosition() + seconds);
        }
    });
}

void VideoWindowKeys::setBookmark()
{
    m_mirror.VideoBookmark = decimalText(m_control.CurrentPosition());
}

bool VideoWindowKeys::hasBookmark() const
{
    return conditionHolds("video window, bookmark", [this] {
        (void)decimalValue(m_mirror.VideoBookmark);
        return true;
    });
}

void VideoWindowKeys::goToBookmark()
{
    if (m_control.CurrentState() != MediaControl::NotLoaded && !hasBookmark()) {
        return m_bookmarkIsMissing();
    }
    if (m_control.CurrentState() != MediaControl::Running) {
        return;
    }
    trapped("video window, go to bookmark", [this] {
        const double bookmark = decimalValue(m_mirror.VideoBookmark);
        m_control.Pause();
        m_seek(bookmark);
        m_control.Run();
        m_seek(bookmark);
    });
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

bool MainWindowKeys::press(Command command)
{
    const ActionRow* action = CommandActions::of(command);
    if (action != nullptr) {
        poll();
        action->inMainWindow(*this);
    }
    return action != nullptr;
}

/// A lesson that waits is paused: what has been stopped does not go on.
void MainWindowKeys::stop()
{
    m_engine.practice().giveUpWait();
    m_engine.operations().StopIfRunning();
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
    if (m_engine.operations().player().isRunning()) {
        m_engine.pressPause();
    } else {
        m_engine.play();
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
    if (!m_engine.operations().player().isLoaded()) {
        return; // nothing has a place that could be kept
    }
    trapped("bookmark key", [this] {
        (void)currentText(); // without a clip there is no sign either
        m_engine.keepPosition();
    });
}

void MainWindowKeys::goToBookmark()
{
    auto& operations = m_engine.operations();
    const bool wasRunning = operations.player().isRunning();
    trapped("go to bookmark key", [&] {
        if (wasRunning) {
            operations.PauseIfRunning();
            seekToSavedPosition();
            operations.PlayerRun();
        } else {
            operations.PlayerRun();
            seekToSavedPosition();
        }
    });
}

void MainWindowKeys::seekToSavedPosition()
{
    resumeNext("saved position", [this] { m_engine.seekTo(decimalValue(savedPosition())); });
}

QString MainWindowKeys::savedPosition() const
{
    return m_module.settings().position(currentText());
}

QString MainWindowKeys::currentText() const
{
    return m_engine.playingText();
}

static bool carryOutPractice(PracticeControls& practice, Command command)
{
    switch (command) {
    case Command::RepeatLine:
        practice.toggleRepeat();
        return true;
    case Command::Slower:
        practice.slower();
        return true;
    case Command::Faster:
        practice.faster();
        return true;
    case Command::NormalSpeed:
        practice.normalSpeed();
        return true;
    case Command::NextWait:
        practice.nextWait();
        return true;
    default:
        return false;
    }
}

bool carryOutInPlayer(PlaybackEngine& engine, Command command)
{
    switch (command) {
    case Command::Quit:
        engine.closeProgram();
        return true;
    case Command::StopButton:
        engine.pressStop();
        return true;
    case Command::NextLine:
        engine.lineStep(1);
        return true;
    case Command::PreviousLine:
        engine.lineStep(-1);
        return true;
    case Command::LineAgain:
        engine.lineAgain();
        return true;
    case Command::NextClip:
        engine.nextChecked();
        return true;
    case Command::PreviousClip:
        engine.previousChecked();
        return true;
    default:
        return carryOutPractice(engine.practice(), command);
    }
}

} // namespace orvanta
