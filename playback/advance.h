// What comes after a clip has ended: pure rules.
#pragma once

#include "core/int16.h"

#include <functional>
#include <optional>

namespace orvanta {

/// A place in the playlist: packet and clip, both from 1; 0 for none, clip 0 also before the first
/// brake.
struct Cursor
{
    Int16 packet;
    Int16 clip;
    friend bool operator==(const Cursor&, const Cursor&) = default;
};

struct AdvanceOptions
{
    bool nextClip = false;   // "agnc"
    bool nextPacket = false; // "agnp"
    bool replay = false;     // "ar"
};

/// The playlist as the rules see it.
struct PlaylistShape
{
    Int16 packetCount;
    std::function<Int16(Int16 packet)> clipCount;
    std::function<bool(Int16 packet)> packetChecked;
    std::function<bool(Int16 packet, Int16 clip)> clipChecked;
};

struct AdvanceDecision
{
    enum What
    {
        Stay,  // no advance: the cursor is again the clip that ended
        Start, // start the cursor
        Over,  // playback is over
    };
    What what = Stay;
    Cursor cursor;
};

/// One pass after a clip has ended. Unchecked lines and packets are passed over; the playlist is
/// begun again at most once. Raises 6 when an index would leave 16 bits.
[[nodiscard]] AdvanceDecision nextAfterClip(const AdvanceOptions& options,
                                            const PlaylistShape& playlist, Cursor ended);

/// The first checked clip in this packet or a later one; none when there is none. Packets without
/// clips and packets whose header is unchecked are passed over.
[[nodiscard]] std::optional<Cursor> firstPlaceFrom(const PlaylistShape& playlist, Int16 packet);

/// Where playing begins when nothing is loaded: the first checked place from the current one on,
/// else from the beginning. None when nothing is checked.
[[nodiscard]] std::optional<Cursor> placeToBegin(const PlaylistShape& playlist, Cursor current);

/// The place before: the last clip of the packet before for the first clip of a packet; the very
/// first clip stays. Unchecked lines are passed over.
[[nodiscard]] Cursor previousClip(const PlaylistShape& playlist, Cursor current);

/// The line behind or before, checked or not, of packets that have lines. None past either end.
/// lineCount: the lines of a packet; an end mark is none.
[[nodiscard]] std::optional<Cursor>
lineBehind(Int16 packetCount, const std::function<Int16(Int16)>& lineCount, Cursor current);
[[nodiscard]] std::optional<Cursor> lineBefore(const std::function<Int16(Int16)>& lineCount,
                                               Cursor current);

} // namespace orvanta
