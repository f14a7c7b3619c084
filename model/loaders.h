// The three loaders that fill the playlist.
#pragma once

#include "model/module1.h"

#include <QStringList>

#include <functional>

namespace orvanta {

/// Replaces the playlist with the group's packets. Raises 13, 9 or 6; what was read stays.
void OpenGroup(PlaylistState& playlist, const QString& path);
/// Replaces the playlist with this one packet. Raises 13, 9 or 6.
void OpenPacket(PlaylistState& playlist, const QString& path);
/// Replaces the playlist with one packet holding these files as clips. Raises 6 over 32767.
void OpenFiles(PlaylistState& playlist, const QStringList& paths);

/// Appending variants, for several hand-over entries in one drain and for drops.
void appendGroup(PlaylistState& playlist, const QString& path);
void appendPacket(PlaylistState& playlist, const QString& path);

/// Fills a packet that was appended. Raises 7 where it has more entries than there is room for.
using ReadPacket = std::function<void(PlaylistEntry& packet, qsizetype room)>;
/// Appends a packet as it is read. One that there is no room for is taken away again.
void appendPacketRead(PlaylistState& playlist, const ReadPacket& read);
/// Adds loose clips to packet p (counted from 1), each with the given text.
void appendClip(PlaylistState& playlist, Int16 p, const QString& path, const QString& text);
/// A new packet without clips, titled as one opened by itself; returns its number.
Int16 appendEmptyPacket(PlaylistState& playlist);

/// The folder of the file at path becomes the one opened last, below which loose clips are looked
/// for. The process's own folder stays as it is: it would keep a medium from being unmounted.
/// Raises 76 when there is no such folder.
void openFolderOf(PlaylistState& playlist, const QString& path);

/// Nothing is open any more.
void clearPlaylist(PlaylistState& playlist);

/// Files of a folder that match a pattern like "*.avi;*.mpg", without regard to case, full paths
/// in name order.
[[nodiscard]] QStringList filesOfFolder(const QString& folder, const QString& pattern);

/// The "orvanta.playlist: loaded P packets, C entries" line.
void logLoaded(const PlaylistState& playlist);

} // namespace orvanta
