// The playback operations of the main module: every window but the video window works through them.
#pragma once

#include "platform/media/media_control.h"
#include "playback/video_window.h"

namespace orvanta {

class PlaybackOperations
{
public:
    PlaybackOperations(Module1& module, MediaControl& control, VideoWindow& video);

    /// Synchronises the shared record with the video window. A quiet poll is a few field reads.
    void PollPlayer();
    [[nodiscard]] QString GetPlayerPosition() const; // seconds, decimal text
    QString GetPlayerDuration();                     // seconds, decimal text
    [[nodiscard]] int GetPlayerState() const;
    [[nodiscard]] Int16 GetPlayerVolume() const;
    /// Raises 13 when the text is no number.
    void SetPlayerPosition(const QString& seconds);
    void PauseIfRunning();
    void StopIfRunning();
    void PlayerRun();
    void SetBookmark(const QString& seconds);
    /// Loads a located file straight into the control.
    void OpenMedia(const QString& fileName);
    /// An end that was not yet served belongs to a clip that is being replaced or begun again.
    void ForgetEnd();
    void ShowVideoWindow(bool show);

    [[nodiscard]] bool TakeBookmarkChanged() { return m_module.playback.BookmarkChanged.take(); }
    [[nodiscard]] bool TakeVolumeChanged() { return m_module.playback.VolumeChanged.take(); }
    [[nodiscard]] bool TakeClipEnded() { return m_module.playback.ClipEnded.take(); }

private:
    void pollBookmark();
    void pollState();
    void pollPosition();
    void pollVolume();
    void pollEnd();

    Module1& m_module;
    MediaControl& m_control;
    VideoWindow& m_video;
};

} // namespace orvanta
