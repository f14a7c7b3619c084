// org.mpris.MediaPlayer2.Player: transport, position and volume for the desktop's media controls.
#pragma once

#include "system/mpris_session.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>

namespace orvanta {

class MprisPlayer : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ minimumRate)
    Q_PROPERTY(double MaximumRate READ maximumRate)
    Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPause)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)

public:
    /// announce: something has changed here that nobody else reports.
    MprisPlayer(QObject* object, MprisPorts& ports, std::function<void()> announce);

    [[nodiscard]] QString playbackStatus() const;
    /// As the player runs now: a round may be slower than the speed that was chosen.
    [[nodiscard]] double rate() const { return m_ports.control.Speed(); }
    void setRate(double rate);
    [[nodiscard]] double minimumRate() const { return Practice::kSlowest / 100.0; }
    [[nodiscard]] double maximumRate() const { return Practice::kFastest / 100.0; }
    /// "Track": the line endlessly; "Playlist": everything from the beginning again; "None".
    [[nodiscard]] QString loopStatus() const;
    void setLoopStatus(const QString& status);
    [[nodiscard]] QVariantMap metadata() const;
    [[nodiscard]] double volume() const;
    void setVolume(double volume);
    [[nodiscard]] qlonglong position() const; // microseconds
    [[nodiscard]] bool canGoNext() const;
    [[nodiscard]] bool canGoPrevious() const;
    [[nodiscard]] bool canPlay() const;
    [[nodiscard]] bool canPause() const { return canPlay(); }
    [[nodiscard]] bool canSeek() const;
    [[nodiscard]] bool canControl() const { return true; }

    /// Every property that announces its changes, by name; Position does not.
    [[nodiscard]] QVariantMap announcedProperties() const;

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath& trackId, qlonglong position);
    void OpenUri(const QString& uri);

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    [[nodiscard]] bool isLoaded() const;
    [[nodiscard]] Practice practice() const;
    [[nodiscard]] Cursor current() const;

    MprisPorts& m_ports;
    std::function<void()> m_announce;
};

} // namespace orvanta
