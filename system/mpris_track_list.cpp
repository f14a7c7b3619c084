#include "system/mpris_track_list.h"

#include <QDBusMetaType>

namespace orvanta {

MprisTrackList::MprisTrackList(QObject* object, MprisPorts& ports)
    : QDBusAbstractAdaptor(object),
      m_ports(ports)
{
    qDBusRegisterMetaType<MetadataList>();
}

QList<QDBusObjectPath> MprisTrackList::tracks() const
{
    const PlaylistState& playlist = m_ports.module.playlist;
    QList<QDBusObjectPath> paths;
    if (playlist.CurrentPacket < 1 || playlist.CurrentPacket > playlist.PlaylistCount) {
        return paths;
    }
    const int count = playlist.packet(playlist.CurrentPacket).ClipCount.value();
    paths.reserve(count);
    for (int q = 1; q <= count; ++q) {
        paths.append(QDBusObjectPath(trackPath(playlist.CurrentPacket, q)));
    }
    return paths;
}

void MprisTrackList::announceIfReplaced()
{
    const QList<QDBusObjectPath> now = tracks();
    if (now == m_announced) {
        return;
    }
    m_announced = now;
    const PlaylistState& playlist = m_ports.module.playlist;
    Q_EMIT TrackListReplaced(
        now, QDBusObjectPath(trackPath(playlist.CurrentPacket, playlist.CurrentClip)));
}

MetadataList MprisTrackList::GetTracksMetadata(const QList<QDBusObjectPath>& trackIds)
{
    MetadataList all;
    for (const QDBusObjectPath& track : trackIds) {
        all.append(trackMetadata(m_ports, placeOfTrack(track.path())));
    }
    return all;
}

void MprisTrackList::AddTrack(const QString& /*uri*/, const QDBusObjectPath& /*afterTrack*/,
                              bool /*setAsCurrent*/)
{}

void MprisTrackList::RemoveTrack(const QDBusObjectPath& /*trackId*/) {}

void MprisTrackList::GoTo(const QDBusObjectPath& trackId)
{
    const Cursor place = placeOfTrack(trackId.path());
    if (tracks().contains(trackId)) {
        m_ports.engine.ListClick(place.packet, place.clip);
    }
}

} // namespace orvanta
