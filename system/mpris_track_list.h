// org.mpris.MediaPlayer2.TrackList: the clips or brakes of the current packet.
#pragma once

#include "system/mpris_session.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QList>

namespace orvanta {

using MetadataList = QList<QVariantMap>;

class MprisTrackList : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.TrackList")
    Q_PROPERTY(QList<QDBusObjectPath> Tracks READ tracks)
    Q_PROPERTY(bool CanEditTracks READ canEditTracks)

public:
    MprisTrackList(QObject* object, MprisPorts& ports);

    [[nodiscard]] QList<QDBusObjectPath> tracks() const;
    [[nodiscard]] bool canEditTracks() const { return false; }

    /// Announces the tracks when another packet, or one of another playlist, is current; says
    /// whether it did.
    bool announceIfReplaced();

public Q_SLOTS:
    orvanta::MetadataList GetTracksMetadata(const QList<QDBusObjectPath>& trackIds);
    // The list cannot be edited from outside: the interface asks for these to have no effect then.
    void AddTrack(const QString& uri, const QDBusObjectPath& afterTrack, bool setAsCurrent);
    void RemoveTrack(const QDBusObjectPath& trackId);
    void GoTo(const QDBusObjectPath& trackId);

Q_SIGNALS:
    void TrackListReplaced(const QList<QDBusObjectPath>& tracks,
                           const QDBusObjectPath& currentTrack);

private:
    /// What tells one list of tracks from another: comparing thousands of paths would cost more.
    struct Shown
    {
        Int16 packet;
        Int16 count;
        int revision = 0;
        friend bool operator==(const Shown&, const Shown&) = default;
    };
    [[nodiscard]] Shown shownNow() const;

    MprisPorts& m_ports;
    Shown m_announced;
};

} // namespace orvanta

Q_DECLARE_METATYPE(orvanta::MetadataList)
