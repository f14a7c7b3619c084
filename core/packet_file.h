// Packet files (.vxl): writing from the editor's entries, reading for the player and the editor.
#pragma once

#include "core/playlist_entry.h"

#include <QString>
#include <QStringList>

namespace orvanta {

/// Joins the fields of one entry in the editors' lists; never in files.
inline constexpr char16_t kEntryMarker[] = u"{}";

/// The number of entries as a document holds it. Raises 6 over 32767: no reader would take more.
[[nodiscard]] QString countText(const QStringList& entries);

/// Writes a clip-list packet from entries path + "{}" + text. An entry without the marker repeats
/// the previous one. Raises 75 at the first failing step.
void writeClipListPacket(const QString& target, const QStringList& entries);

/// Writes a brake packet: clipPath (section "file1"), mediaFile ("main"/"file") and entries
/// time + "{}" + text in list order. Raises 75 at the first failing step.
void writeBrakePacket(const QString& target, const QString& clipPath, const QString& mediaFile,
                      const QStringList& entries);

/// Reads a packet into entry as the player does: "brakes" decides the kind. Fields that the kind
/// does not have stay as they are; Title and Picture are the caller's. Absent counts are 0. Raises
/// 13 (no number), 9 (negative count), 6 (over 32767) or 7 (more entries than there is room for);
/// what was read before stays in entry.
void readPacketInto(PlaylistEntry& entry, const QString& path, qsizetype room = kMostEntries);

/// The editor's reading of the clip list: entries path + "{}" + text are added one by one, so that
/// those before a failing one stay. Raises 13, 9 or 6.
void readClipListEntries(const QString& path, QStringList& entries);

/// What the editor's brake frame takes from a packet; failing steps are passed over.
struct BrakeDocument
{
    QString mediaFile;
    QStringList entries; // time + "{}" + text
};
[[nodiscard]] BrakeDocument readBrakeDocument(const QString& path);

} // namespace orvanta
