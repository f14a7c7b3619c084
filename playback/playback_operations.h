// The playback operations of the main module: every window but the video window works through them.
// An operation acts on the control as it is; what follows goes by the snapshot that it leaves.
#pragma once

#include "playback/player_snapshot.h"
#include "playback/video_window.h"

#include <functional>

namespace orvanta {

class PlaybackOperations
{
public:
    PlaybackOperations(Module1& module, MediaControl& control, VideoWindow& video);

    /// Synchronises the shared record with the video window and takes the snapshot anew. A quiet
    /// poll is a few field reads.
    void PollPlayer();
    /// The part of it that a bookmark set in the video window needs.
    void PollBookmark();
    /// Takes the snapshot anew without serving what the video window noted: at the entry of a
    /// handler and after a wait in the event loop.
    void look() { m_player = snapshotOf(m_control, m_module.playback); }
    /// The player as the last poll, look or operation left it.
    [[nodiscard]] const PlayerSnapshot& player() const { return m_player; }

    /// Where the player is at this moment, seconds; a snapshot may be older.
    [[nodiscard]] double secondsNow() const { return m_control.CurrentPosition(); }
    /// Asks the player where it is: a position() of the control follows if it has moved.
    void RefreshPosition() { m_control.refreshPosition(); }
    /// Seconds; 0 while unknown.
    [[nodiscard]] double durationSeconds() const { return m_control.Duration(); }

    /// Asked as a clip comes to its end: whether it stays in the player, stopped at 0.
    std::function<bool()> keepsClipAtEnd = [] { return false; };

    [[nodiscard]] QString GetPlayerPosition() const { return m_player.position; }
    [[nodiscard]] int GetPlayerState() const { return m_player.state; }
    [[nodiscard]] Int16 GetPlayerVolume() const { return m_module.playback.CachedVolume; }
    /// Seconds, decimal text, from the control; kept for the steps that serve a clip's end.
    QString GetPlayerDuration();
    /// Raises 13 when the text is no number.
    void SetPlayerPosition(const QString& seconds);
    void PauseIfRunning();
    void StopIfRunning();
    void PlayerRun();
    /// Pauses the player also where it stands at the end of its clip.
    void HoldPlayer();
    /// 1: as recorded.
    void SetSpeed(double speed) { m_control.setSpeed(speed); }
    [[nodiscard]] double Speed() const { return m_control.Speed(); }
    /// From left to right.
    void SetMirrored(bool mirrored) { m_control.setMirrored(mirrored); }
    void SetEvenLoudness(bool even) { m_control.setEvenLoudness(even); }
    void SetBookmark(const QString& seconds);
    /// Loads a located file straight into the control.
    void OpenMedia(const QString& fileName);
    /// Loaded next, if the clip that plays comes to its end by itself. Empty: nothing.
    void PrepareMedia(const QString& fileName) { m_control.prepare(fileName); }
    /// Stops and empties the player.
    void UnloadMedia();
    /// Hundredths of a decibel, straight to the control.
    void SetControlVolume(int hundredthsOfDecibel) { m_control.setVolume(hundredthsOfDecibel); }
    /// An end that was not yet served belongs to a clip that is being replaced or begun again.
    void ForgetEnd();
    void ShowVideoWindow(bool show);

    [[nodiscard]] bool TakeBookmarkChanged() { return m_module.playback.BookmarkChanged.take(); }
    [[nodiscard]] bool TakeVolumeChanged() { return m_module.playback.VolumeChanged.take(); }
    [[nodiscard]] bool TakeClipEnded() { return m_module.playback.ClipEnded.take(); }

private:
    void pollState();
    void pollPosition();
    void pollVolume();
    void pollEnd();

    Module1& m_module;
    MediaControl& m_control;
    VideoWindow& m_video;
    PlayerSnapshot m_player;
};

} // namespace orvanta
