// The media control over libmpv.
#pragma once

#include "core/descriptor.h"
#include "platform/media/cover_reader.h"
#include "platform/media/file_probe.h"
#include "platform/media/media_control.h"
#include "platform/media/mpv_handle.h"
#include "platform/media/mpv_options.h"
#include "platform/media/mpv_picture_source.h"
#include "platform/media/mpv_seek.h"
#include "platform/media/opengl_driver.h"
#include "platform/media/sound_output.h"

#include <QElapsedTimer>
#include <QSize>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace orvanta {

/// The operations are in mpv_player.cpp, the loading of files in mpv_loading.cpp, sound tracks and
/// subtitles in mpv_tracks.cpp, the clip after the one that plays in mpv_ahead.cpp, what draws the
/// pictures in mpv_drawing.cpp, the events in mpv_events.cpp. Every signal is emitted last, since
/// its receivers may load another file or spin the event loop.
class MpvPlayer : public MediaControl
{
    Q_OBJECT

public:
    /// Raises 53 when the player library cannot be used.
    MpvPlayer(MpvOptionList extraOptions, std::optional<RendererChoice> choice);
    ~MpvPlayer() override;

    [[nodiscard]] QString FileName() const override { return m_fileName; }
    void setFileName(const QString& path) override;
    [[nodiscard]] double CurrentPosition() const override;
    void setCurrentPosition(double seconds) override { seek(seconds, MpvSeek::Exact); }
    void previewPosition(double seconds) override { seek(seconds, MpvSeek::KeyFrame); }
    [[nodiscard]] double Duration() const override { return m_duration; }
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
    void raiseSubtitles(double part) override;
    bool readCover() override;
    void prepare(const QString& path) override;
    void refreshPosition() override;
    [[nodiscard]] bool isReady() const override { return m_phase == Ready; }
    [[nodiscard]] bool isOpening() const override { return m_phase == Opening; }
    [[nodiscard]] PictureSource* picture() override { return &m_picture; }
    [[nodiscard]] PictureFacts pictureFacts() const override;

private:
    static constexpr std::chrono::seconds kPatienceToOpen{10};

    enum Phase
    {
        Empty,
        Opening,
        Ready,
    };

    /// What an answer of the library belongs to; the rest of its id is a serial number.
    enum Request : quint64
    {
        Unasked,
        LoadFile,
        Seek,
        PositionNow,
        PauseLook,
        AddSubtitles,
        NewTracks,
        SubtitlesMoved,
        PictureOff,
        NextFile,
        NextWithdrawn,
        NextPosition,
        // Facts about a file, asked in this order when it can play.
        FileFormat,
        Length,
        Tracks,
        PictureWidth,
        PictureHeight,
    };

    /// Properties that the library reports by itself.
    enum Observed : quint64
    {
        TimePosition,
        ClipLength,
        PauseState,
        EndOfFile,
        OutputName,
        DecoderName,
    };

    // mpv_player.cpp
    void listen();
    void tellSettings();
    void seek(double seconds, MpvSeek::Kind kind);
    void changeState(State state);
    void setPaused(bool paused);
    void pauseIfWanted();
    void goTo(double target, MpvSeek::Kind kind);
    void seekSettled();
    void rewind();
    void lookForEnd();
    void takeLook(bool paused, quint64 serial);
    void reachEnd();
    void reportJump(double oldSeconds);
    void moveTo(double seconds);
    void takeDuration(double seconds);
    [[nodiscard]] double clamped(double seconds) const;
    [[nodiscard]] bool canGoTo(double target) const { return !m_unseekable || target <= 0; }

    // mpv_loading.cpp
    void load(const QString& path);
    void unload();
    void forgetClip();
    void fileLookedAt(FileProbe::Answer answer);
    void loadEntry(double start = 0);
    void reload(double start = 0);
    [[nodiscard]] bool hasBegun() const { return m_entry >= 0 && m_entry == m_startedEntry; }
    void entryBegan();
    void patienceIsOver();
    void takeFreshPlayer();
    void refuseLater(const QString& reason);
    void endOfEntry(const mpv_event_end_file& end);
    void askFacts();
    void finishOpening();
    void showPicture();
    void showPictureSoon();
    void finishReloading();
    void failOpening(const QString& reason);
    void seekAsWished();

    // mpv_ahead.cpp
    [[nodiscard]] bool mayGoOn() const;
    [[nodiscard]] bool isAhead() const { return m_next.stage >= NextClip::Playing; }
    void appendNext();
    void dropNext();
    void withdrawNext();
    void goneOn();
    void nextFailed();
    void lookAhead();
    void waitForNext();
    void hearUpTo(double seconds);
    void takeNextPosition(std::optional<double> seconds);
    void reachEndAhead();
    void adoptNext();
    void settleAdopted();
    void backToClip(double seconds);

    // mpv_tracks.cpp
    void forgetTracks();
    void takeTracks(const mpv_node& list);
    void markChosen(MediaTrack::Kind kind, int id);
    [[nodiscard]] bool hasTrack(MediaTrack::Kind kind, int id) const;
    void loadSubtitles();
    void subtitlesAdded(int error);
    void showAtRest();
    void readAgain();

    // mpv_drawing.cpp
    void chooseRenderer();
    void drawBySoftware();
    void leaveOpenGl(const QString& reason);
    void pictureIsOff();
    void bringPictureBack();
    void decodeFor(const char* way);

    // mpv_events.cpp
    void observeProperties();
    void serveEvents();
    void serve(const mpv_event& event);
    void serveCommand(const mpv_event& event);
    void serveNext(Request request, const mpv_event& event);
    void serveAnswer(const mpv_event& event);
    void serveFact(Request fact, const mpv_event& event);
    void serveProperty(const mpv_event& event);
    void playbackRestarted();

    static quint64 idOf(Request request, quint64 serial);

    const MpvOptionList m_extraOptions;
    std::optional<RendererChoice> m_choice; // until the choice is made for good
    bool m_mayDecodeByGraphics;
    std::shared_ptr<OpenGlDriver> m_driver; // while it draws
    std::unique_ptr<MpvHandle> m_mpv;
    MpvPictureSource m_picture;
    SoundOutput m_sound;
    FileProbe m_probe;
    QTimer m_look;      // while running: has the clip come to its end?
    QTimer m_pauseSoon; // one turn of the event loop after a pause was asked for
    QTimer m_seekGuard; // ends a seek that the player never answers
    QTimer m_patience;  // while opening

    /// What follows the clip that is open.
    struct NextClip
    {
        enum Stage
        {
            None,     // nothing, or not to be had
            Appended, // to the library's list
            Playing,  // by the library; what is heard is still the clip that is open
            Heard,    // the end has been told; it is to be loaded in this moment
        };
        QString path;
        Stage stage = None;
        qint64 entry = -1;    // the library's number
        bool begun = false;   // its position can be had
        QElapsedTimer looked; // until then: since the last look
        double waited = 0;    // seconds of playing
    };
    NextClip m_next;
    FileProbe m_nextProbe;
    QTimer m_nextLook; // while Playing: is it heard by now?
    quint64 m_nextSerial = 0;
    bool m_withdrawing = false; // the library may have gone on to it before it heard of that
    bool m_isAdopted = false;   // what is being opened plays already
    QString m_refusedNext;      // could not be played on to

    QString m_fileName;
    Phase m_phase = Empty;
    State m_state = NotLoaded;
    int m_volume = 0;
    double m_speed = 1;
    bool m_mirrored = false;
    bool m_even = false;
    int m_raised = 0; // percent of the height that are free below the subtitles

    quint64 m_load = 0;         // serial of the newest load
    qint64 m_entry = -1;        // the library's number of that load; -1: not told yet
    qint64 m_startedEntry = -1; // the entry that the library began last
    bool m_isFresh = true;      // the player has not been given a file before this one
    bool m_factsAsked = false;
    bool m_reloading = false; // on the way back to the start of a clip that cannot seek to it
    bool m_rewindsByReload = false;
    bool m_unseekable = false; // plays from its start to its end, and nothing else
    QSize m_pictureSize;
    int m_pictureTrack = 0;      // the library's number of it
    bool m_pictureIsOff = false; // while what draws it is changed
    QString m_decoder;           // of pictures, where it is none of the processor's

    std::vector<MediaTrack> m_tracks;
    bool m_hasCover = false;
    CoverReader m_cover;
    bool m_tracksTouched = false; // others than those with which a clip opens were chosen
    struct AddedFile
    {
        Descriptor copy;
        QByteArray name;
        QByteArray language;
    };
    AddedFile m_added; // the file added last, as long as the clip is there

    double m_position = 0;
    double m_duration = 0; // 0: unknown
    double m_largest = 0;  // the largest position seen
    bool m_atStart = true; // rewound: exactly 0, whatever the first time stamp is
    MpvSeek m_seek;
    std::optional<double> m_seekWhenReady;
    quint64 m_pauseSerial = 0; // a look asked for before the newest change tells nothing
    bool m_lookAsked = false;
};

} // namespace orvanta
