// A media control that does what a script says, for tests that need an event at an exact moment.
#pragma once

#include "platform/media/media_control.h"

#include <QStringList>

namespace orvanta {

/// Opens nothing. Loads complete when the script says so (or at once with autoOpen).
class ScriptedMediaControl : public MediaControl
{
    Q_OBJECT

public:
    using MediaControl::MediaControl;

    // What the script sets.
    bool autoOpen = true;     // setFileName completes at once (from the event loop)
    bool failSeeks = false;   // seeks are refused: the position stays
    QSize pictureSize;        // what openComplete reports; empty: no picture
    double duration = 10.0;   // seconds
    QStringList refusedFiles; // these fail to open
    QString prepared;         // by the newest call
    int positionsAsked = 0;   // calls of refreshPosition
    QStringList calls;        // every call in order: "Run", "Pause", "seek 12.5", "load /a.avi"

    std::vector<MediaTrack> clipTracks; // of each clip, as it opens

    double subtitlesRaised = 0; // as asked for last, a part of the height

    bool hasCover = false; // a clip carries one; completeCover() is when it is read

    void completeCover(const QImage& cover) { Q_EMIT coverRead(cover); }
    void completeOpening();
    void failOpening();
    /// The clip runs to this position; emits position().
    void playTo(double seconds);
    /// The natural end: positionChange(Duration, 0), state stopped.
    void reachEnd();
    void forceState(State state);

    [[nodiscard]] QString FileName() const override { return m_fileName; }
    void setFileName(const QString& path) override;
    [[nodiscard]] double CurrentPosition() const override { return m_position; }
    void setCurrentPosition(double seconds) override;
    void previewPosition(double seconds) override;
    [[nodiscard]] double Duration() const override;
    [[nodiscard]] State CurrentState() const override { return m_state; }
    void Run() override;
    void Pause() override;
    void Stop() override;
    void setVolume(int hundredthsOfDecibel) override;
    [[nodiscard]] int Volume() const override { return m_volume; }
    void setSpeed(double speed) override;
    [[nodiscard]] double Speed() const override { return m_speed; }
    void setMirrored(bool mirrored) override;
    void setEvenLoudness(bool even) override;
    [[nodiscard]] std::vector<MediaTrack> tracks() const override { return m_tracks; }
    void chooseSound(int id) override;
    void chooseSubtitles(int id) override;
    void addSubtitleFile(const QString& path, const QString& language) override;
    void raiseSubtitles(double part) override { subtitlesRaised = part; }
    bool readCover() override { return hasCover; }
    void prepare(const QString& path) override { prepared = path; }
    void refreshPosition() override { ++positionsAsked; }
    [[nodiscard]] bool isReady() const override { return m_ready; }
    [[nodiscard]] bool isOpening() const override { return m_opening; }

private:
    void changeState(State state);
    void jumpTo(double seconds);
    void mark(MediaTrack::Kind kind, int id);
    void reportJump(double oldSeconds);

    QString m_fileName;
    std::vector<MediaTrack> m_tracks;
    double m_position = 0;
    State m_state = NotLoaded;
    int m_volume = 0;
    double m_speed = 1;
    bool m_mirrored = false;
    bool m_even = false;
    bool m_ready = false;
    bool m_opening = false;
    quint64 m_load = 0; // serial of the newest load
};

} // namespace orvanta
