#include "system/mpris_session.h"

#include "platform/process/media_locator.h"

#include <QDBusObjectPath>
#include <QUrl>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr auto kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack"_L1;
constexpr auto kTrackRoot = "/org/orvanta/track/"_L1;

static bool contains(const PlaylistState& playlist, Cursor place)
{
    return place.packet >= 1 && place.packet <= playlist.PlaylistCount && place.clip >= 1 &&
           place.clip <= playlist.packet(place.packet).ClipCount;
}

static QString artUrl(const PlaylistEntry& packet)
{
    const QString file = locateFile(packet.Picture, packet.PictureFolder);
    return file.isEmpty() ? QString() : QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
}

QString trackPath(Int16 p, Int16 q)
{
    if (p < 1 || q < 1) {
        return kNoTrack;
    }
    return kTrackRoot + QString::number(p.value()) + u'/' + QString::number(q.value());
}

Cursor placeOfTrack(const QString& path)
{
    if (!path.startsWith(kTrackRoot)) {
        return {};
    }
    const QStringList parts = path.mid(kTrackRoot.size()).split(u'/');
    if (parts.size() != 2) {
        return {};
    }
    bool packetIsNumber = false;
    bool clipIsNumber = false;
    const Cursor place{parts[0].toShort(&packetIsNumber), parts[1].toShort(&clipIsNumber)};
    return packetIsNumber && clipIsNumber ? place : Cursor{};
}

QString playbackStatus(MediaControl::State state)
{
    switch (state) {
    case MediaControl::Running:
        return u"Playing"_s;
    case MediaControl::Paused:
        return u"Paused"_s;
    default:
        return u"Stopped"_s;
    }
}

QVariantMap trackMetadata(const MprisPorts& ports, Cursor place)
{
    const PlaylistState& playlist = ports.module.playlist;
    if (!contains(playlist, place)) {
        return {{u"mpris:trackid"_s, QVariant::fromValue(QDBusObjectPath(kNoTrack))}};
    }
    const PlaylistEntry& packet = playlist.packet(place.packet);
    QVariantMap data{
        {u"mpris:trackid"_s,
         QVariant::fromValue(QDBusObjectPath(trackPath(place.packet, place.clip)))},
        {u"xesam:title"_s, packet.clip(place.clip).Text},
        {u"xesam:album"_s, packet.Title},
    };
    const Cursor current{playlist.CurrentPacket, playlist.CurrentClip};
    if (place == current && ports.control.Duration() > 0) {
        data.insert(u"mpris:length"_s, microseconds(ports.control.Duration()));
    }
    if (const QString art = artUrl(packet); !art.isEmpty()) {
        data.insert(u"mpris:artUrl"_s, art);
    }
    return data;
}

qlonglong microseconds(double seconds)
{
    return std::llround(seconds * 1e6);
}

} // namespace orvanta
