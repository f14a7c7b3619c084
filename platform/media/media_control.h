// The media-playback control in the program's own words.
#pragma once

#include "platform/media/media_track.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

#include <cmath>
#include <vector>

namespace orvanta {

class PictureSource;

/// How pictures are drawn and decoded now, for people.
struct PictureFacts
{
    QString openGlDriver; // empty: drawn by the processor
    QString decoder;      // of the clip that is open; empty: decoded by the processor
};

/// One media player. All calls and signals belong to the interface thread; none blocks for long.
/// It behaves like a player that rewinds at the end: on the natural end, and only then, it reports
/// positionChange(Duration, 0) and stands stopped at 0.
class MediaControl : public QObject
{
    Q_OBJECT

public:
    enum State
    {
        NotLoaded = -1,
        Stopped = 0,
        Paused = 1,
        Running = 2,
    };

    using QObject::QObject;

    /// The file last given to setFileName; empty when unloaded.
    [[nodiscard]] virtual QString FileName() const = 0;
    /// Loads the absolute path of a regular file; anything else fails with openFailed and is never
    /// opened. The empty text unloads. A load that comes while another is under way supersedes it.
    virtual void setFileName(const QString& path) = 0;

    /// Seconds. While a seek is under way this is its target.
    [[nodiscard]] virtual double CurrentPosition() const = 0;
    /// Exact seek, seconds, clamped to the clip. Equal seeks under way are one.
    virtual void setCurrentPosition(double seconds) = 0;
    /// Fast seek to a nearby key frame, while a slider is dragged.
    virtual void previewPosition(double seconds) = 0;

    /// Seconds; 0 while unknown.
    [[nodiscard]] virtual double Duration() const = 0;
    [[nodiscard]] virtual State CurrentState() const = 0;

    virtual void Run() = 0;
    virtual void Pause() = 0;
    /// Stands stopped at position 0.
    virtual void Stop() = 0;

    /// Hundredths of a decibel, 0 loudest, -10000 silent.
    virtual void setVolume(int hundredthsOfDecibel) = 0;
    [[nodiscard]] virtual int Volume() const = 0;

    /// 0.25 to 2; 1 as recorded. The pitch stays. Kept from clip to clip.
    virtual void setSpeed(double speed) = 0;
    [[nodiscard]] virtual double Speed() const = 0;
    /// The picture from left to right. Kept from clip to clip.
    virtual void setMirrored(bool mirrored) = 0;
    /// Loud and quiet clips, and parts of them, at one level. Kept from clip to clip.
    virtual void setEvenLoudness(bool even) = 0;

    /// Sound and subtitles of the clip that is open, those of an added file last. Each clip opens
    /// with the sound that it says and without subtitles.
    [[nodiscard]] virtual std::vector<MediaTrack> tracks() const = 0;
    /// By its number; what is not there is passed over.
    virtual void chooseSound(int id) = 0;
    /// 0: none.
    virtual void chooseSubtitles(int id) = 0;
    /// Adds a subtitle file (SubRip, WebVTT, ASS) to the clip that is open, and chooses it. Its
    /// name becomes the track's title. Nothing but this file is read; one that is in no use is
    /// logged and changes nothing.
    virtual void addSubtitleFile(const QString& path, const QString& language) = 0;

    /// Subtitles at the lower edge stand above this part of the picture source's height, 0 to 1; 0
    /// as usual. Such as say their own place stay there. Kept from clip to clip.
    virtual void raiseSubtitles(double part) = 0;

    /// Begins to read the picture that a clip of sound carries, its cover, unless one goes before
    /// that: coverRead follows. False when the clip that is open carries none.
    virtual bool readCover() = 0;

    /// The file that follows if the clip that runs plays to its end: where it can, the control
    /// opens it ahead and lets its sound follow without a gap. Told is only what is heard: the end
    /// when its time has come, and the file when it is loaded upon that; anything else that is
    /// asked for goes before. Empty: none, or not any more.
    virtual void prepare(const QString& path) = 0;

    /// Asks for the position anew, between two reports: position() follows when it has moved.
    virtual void refreshPosition() = 0;

    /// Whether the file is open and can be sought and run.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// Whether a load has begun and is neither open nor failed.
    [[nodiscard]] virtual bool isOpening() const = 0;

    /// Where the video surface takes its frames from; null when the control shows none.
    [[nodiscard]] virtual PictureSource* picture() { return nullptr; }
    [[nodiscard]] virtual PictureFacts pictureFacts() const { return {}; }

Q_SIGNALS:
    /// The file is open. The picture's size in pixels; invalid (isEmpty) when the clip has none.
    void openComplete(QSize picture);
    void openFailed(const QString& reason);
    /// The position moved (many times a second while running).
    void position();
    /// A jump: the natural end, a user's seek, a stop. A jump of the user's that would look like
    /// the end is not reported here, only by position().
    void positionChange(double oldSeconds, double newSeconds);
    void stateChange(orvanta::MediaControl::State oldState, orvanta::MediaControl::State newState);
    /// Other tracks are there, or chosen, in the clip that is open.
    void tracksChanged();
    /// Null when it is damaged or has more than 64 megapixels.
    void coverRead(const QImage& cover);
    /// The length became known or changed.
    void durationChange(double seconds);
};

/// The one rule by which a clip has ended: a jump from its last whole second to exactly 0. Seconds.
[[nodiscard]] inline bool looksLikeEnd(double oldSeconds, double newSeconds, double duration)
{
    return std::trunc(oldSeconds) == std::trunc(duration) && newSeconds == 0.0;
}

} // namespace orvanta
