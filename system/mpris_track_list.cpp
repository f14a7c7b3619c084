#include "system/mpris_track_list.h"

#include <QDBusMetaType>

namespace orvanta {

MprisTrackList::MprisTrackList(QObject* object, MprisPorts& ports)
    : QDBusAbstractAdaptor(object),
      m_ports(ports)
{
    qDBusRegisterMetaType<MetadataList>();
}

MprisTrackList::Shown MprisTrackList::shownNow() const
{
    const PlaylistState& playlist = m_ports.module.playlist;
    const Int16 p = playlist.CurrentPacket;
    if (p < 1 || p > playlist.PlaylistCount) {
        return {};
    }
    return {p, playlist.packet(p).ClipCount, playlist.revision};
}

QList<QDBusObjectPath> MprisTrackList::tracks() const
{
    const Shown now = shownNow();
    QList<QDBusObjectPath> paths;
    paths.reserve(now.count.value());
    for (int q = 1; q <= now.count.value(); ++q) {
        paths.append(QDBusObjectPath(trackPath(now.packet, q)));
    }
    return paths;
}

bool MprisTrackList::announceIfReplaced()
{
    const Shown now = shownNow();
    if (now == m_announced) {
        return false;
    }
    m_announced = now;
    Q_EMIT TrackListReplaced(
        tracks(), QDBusObjectPath(trackPath(now.packet, m_ports.module.playlist.CurrentClip)));
    return true;
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
