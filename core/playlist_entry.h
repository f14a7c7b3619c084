// One open packet and its clips or brakes.
#pragma once

#include "core/int16.h"

#include <QString>

#include <memory>
#include <vector>

namespace orvanta {

/// Entries that may be open at once, in all packets together. A short document can name more than
/// any memory holds.
inline constexpr qsizetype kMostEntries = 1'000'000;

/// A clip of a clip-list packet, or a brake of a brake packet.
struct ClipEntry
{
    QString Time; // brakes: the time mark as written in the packet
    QString Text; // the line's text; also the key of the saved position
    QString Path; // clips: the media file, as written in the packet
};

/// Where a packet is kept. The copies of an entry share it, so that all of them know when it was
/// saved.
struct PacketOrigin
{
    QString file;   // the packet's own file; empty before it is saved for the first time
    QString member; // how its group writes that path; empty in no group
};

/// One packet. Clips counts from 1 for every caller: use clip().
struct PlaylistEntry
{
    QString Title;         // the packet's line
    QString Picture;       // picture file of the group entry; empty when opened by itself
    QString PictureFolder; // folder of the group, with its separator: where Picture is looked for
    Int16 ClipCount;       // number of entries of Clips
    Flag16 HasBrakes;
    QString MediaFile;            // brake packets: the one media file
    std::vector<ClipEntry> Clips; // entry 1 is Clips[0]
    QString Folder;               // folder of the packet file with its separator; empty for clips
    std::shared_ptr<PacketOrigin> Origin; // null: loose clips

    /// Entry q, counted from 1. Raises 9 outside the list.
    [[nodiscard]] const ClipEntry& clip(Int16 q) const
    {
        if (q < 1 || q.index() > Clips.size()) {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        return Clips[q.index() - 1];
    }
};

} // namespace orvanta
