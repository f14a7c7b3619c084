// A small lesson to edit: two packets of clips and one of brakes between them.
#pragma once

#include "model/editing/lesson_editing.h"

#include <QString>

namespace orvanta::test {

inline PlaylistEntry clipsPacket(const QString& title, const QStringList& texts)
{
    PlaylistEntry packet;
    packet.Title = title;
    for (const QString& text : texts) {
        packet.Clips.push_back({.Time = {},
                                .Text = text,
                                .Path = QStringLiteral("/m/") + text + QStringLiteral(".mp4")});
    }
    packet.ClipCount = Int16(static_cast<qint64>(packet.Clips.size()));
    return packet;
}

inline PlaylistEntry brakesPacket(const QString& title, const QStringList& times)
{
    PlaylistEntry packet;
    packet.Title = title;
    packet.HasBrakes = true;
    packet.MediaFile = QStringLiteral("/m/film.mp4");
    for (const QString& time : times) {
        packet.Clips.push_back({.Time = time, .Text = QStringLiteral("at ") + time, .Path = {}});
    }
    packet.ClipCount = Int16(static_cast<qint64>(packet.Clips.size()));
    return packet;
}

inline PlaylistState playlistOf(std::vector<PlaylistEntry> packets)
{
    PlaylistState playlist;
    playlist.PlaylistCount = Int16(static_cast<qint64>(packets.size()));
    playlist.Playlist = std::move(packets);
    return playlist;
}

/// All that documents hold of it, in one text.
inline QString wholeTextOf(const PlaylistState& playlist)
{
    QString text = QString::number(playlist.PlaylistCount.value());
    for (const PlaylistEntry& packet : playlist.Playlist) {
        text += QStringLiteral("\n# ") + packet.Title + u'|' + packet.Picture + u'|' +
                packet.MediaFile + u'|' + QString::number(packet.ClipCount.value()) +
                QStringLiteral("|") + (packet.HasBrakes ? u'b' : u'c');
        for (const ClipEntry& line : packet.Clips) {
            text += u'\n' + line.Time + u'|' + line.Text + u'|' + line.Path;
        }
    }
    return text;
}

inline QStringList textsOf(const PlaylistEntry& packet)
{
    QStringList texts;
    for (const ClipEntry& line : packet.Clips) {
        texts.append(line.Text);
    }
    return texts;
}

inline QStringList timesOf(const PlaylistEntry& packet)
{
    QStringList times;
    for (const ClipEntry& line : packet.Clips) {
        times.append(line.Time);
    }
    return times;
}

} // namespace orvanta::test
