#include "playback/playback_operations.h"

#include "core/numbers.h"

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

PlaybackOperations::PlaybackOperations(Module1& module, MediaControl& control, VideoWindow& video)
    : m_module(module),
      m_control(control),
      m_video(video)
{}

void PlaybackOperations::PollPlayer()
{
    PollBookmark();
    pollState();
    pollPosition();
    pollVolume();
    look();
    pollEnd();
}

void PlaybackOperations::PollBookmark()
{
    PlaybackRecord& record = m_module.playback;
    VideoMirror& mirror = m_video.mirror();
    if (mirror.VideoBookmark != record.CachedBookmark) {
        record.BookmarkChanged = true;
    }
    if (record.BookmarkPending.take()) {
        mirror.VideoBookmark = record.CachedBookmark;
    }
}

void PlaybackOperations::pollState()
{
    PlaybackRecord& record = m_module.playback;
    VideoMirror& mirror = m_video.mirror();
    if (mirror.VideoState != record.CachedState) {
        record.CachedState = m_control.CurrentState();
        record.StateChanged = true;
        mirror.VideoState = record.CachedState;
    }
}

void PlaybackOperations::pollPosition()
{
    VideoMirror& mirror = m_video.mirror();
    if (!mirror.VideoPositionUpdated) {
        return;
    }
    if (mirror.VideoPosition.isEmpty()) {
        mirror.VideoPosition = u"0"_s;
    }
    m_module.playback.CachedPosition = mirror.VideoPosition;
    m_module.playback.PositionChanged = true;
}

void PlaybackOperations::pollVolume()
{
    PlaybackRecord& record = m_module.playback;
    if (m_video.mirror().VideoVolume != record.CachedVolume) {
        record.CachedVolume = m_video.mirror().VideoVolume;
        record.VolumeChanged = true;
    }
}

/// The clip is gone, but for the steps that serve its end it stands stopped.
void PlaybackOperations::pollEnd()
{
    if (!m_video.mirror().VideoEnded.take()) {
        return;
    }
    m_module.playback.ClipEnded = true;
    (void)GetPlayerDuration(); // still known
    if (keepsClipAtEnd()) {
        return;
    }
    const MediaControl::State atEnd = std::min(m_player.state, MediaControl::Stopped);
    m_control.Stop();
    m_control.setFileName({});
    m_video.moveOutOfSight();
    look();
    m_player.state = atEnd;
}

QString PlaybackOperations::GetPlayerDuration()
{
    m_module.playback.CachedDuration = decimalText(m_control.Duration());
    return m_module.playback.CachedDuration;
}

void PlaybackOperations::SetPlayerPosition(const QString& seconds)
{
    const double target = decimalValue(seconds);
    m_module.playback.CachedPosition = seconds;
    if (m_control.CurrentState() == MediaControl::Running) {
        m_control.Pause();
        m_control.setCurrentPosition(target);
        m_control.Run();
    }
    m_control.setCurrentPosition(target);
    // The next poll would bring the position before the seek back: a player that stands sends none.
    m_video.mirror().VideoPosition = decimalText(m_control.CurrentPosition());
    look();
}

void PlaybackOperations::PauseIfRunning()
{
    if (m_control.CurrentState() == MediaControl::Running) {
        m_control.Pause();
        look();
    }
}

void PlaybackOperations::StopIfRunning()
{
    if (m_control.CurrentState() == MediaControl::Running) {
        m_control.Stop();
        look();
    }
}

void PlaybackOperations::PlayerRun()
{
    const MediaControl::State state = m_control.CurrentState();
    if (state != MediaControl::Running && state != MediaControl::NotLoaded) {
        m_control.Run();
        look();
    }
}

void PlaybackOperations::HoldPlayer()
{
    m_control.Pause();
    look();
}

void PlaybackOperations::SetBookmark(const QString& seconds)
{
    m_module.playback.CachedBookmark = seconds;
    m_video.mirror().VideoBookmark = seconds;
    m_module.playback.BookmarkPending = true;
}

void PlaybackOperations::OpenMedia(const QString& fileName)
{
    ForgetEnd();
    m_video.prepareForMedia();
    m_control.setFileName(fileName);
    look();
}

void PlaybackOperations::UnloadMedia()
{
    StopIfRunning();
    ForgetEnd();
    m_control.setFileName({});
    m_video.moveOutOfSight();
    look();
}

void PlaybackOperations::ForgetEnd()
{
    m_video.mirror().VideoEnded = false;
    m_module.playback.ClipEnded = false;
}

void PlaybackOperations::ShowVideoWindow(bool show)
{
    m_video.showWindow(show);
    m_module.playback.VideoWindowShown = show;
}

} // namespace orvanta
