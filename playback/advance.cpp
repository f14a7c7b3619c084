#include "playback/advance.h"

#include <algorithm>
#include <limits>

namespace orvanta {

/// The first checked clip of the packet from this one on; past ClipCount when there is none.
static Int16 checkedClipFrom(const PlaylistShape& playlist, Cursor from)
{
    const Int16 count = playlist.clipCount(from.packet);
    if (!playlist.packetChecked(from.packet)) {
        return count + 1;
    }
    Int16 clip = from.clip;
    while (clip <= count && !playlist.clipChecked(from.packet, clip)) {
        clip += 1;
    }
    return clip;
}

/// The last checked clip of the packet up to this one; 0 when there is none.
static Int16 checkedClipUpTo(const PlaylistShape& playlist, Cursor upTo)
{
    if (!playlist.packetChecked(upTo.packet)) {
        return 0;
    }
    Int16 clip = upTo.clip;
    while (clip >= 1 && !playlist.clipChecked(upTo.packet, clip)) {
        clip -= 1;
    }
    return clip;
}

std::optional<Cursor> firstPlaceFrom(const PlaylistShape& playlist, Int16 packet)
{
    for (int p = packet.value(); p <= playlist.packetCount.value(); ++p) {
        const Int16 clip = checkedClipFrom(playlist, {p, 1});
        if (clip <= playlist.clipCount(p)) {
            return Cursor{p, clip};
        }
    }
    return std::nullopt;
}

static bool isOpen(const PlaylistShape& playlist, Int16 packet)
{
    return packet >= 1 && packet <= playlist.packetCount;
}

std::optional<Cursor> placeToBegin(const PlaylistShape& playlist, Cursor current)
{
    if (!isOpen(playlist, current.packet)) {
        return firstPlaceFrom(playlist, 1);
    }
    const Int16 clip =
        checkedClipFrom(playlist, {current.packet, std::max(current.clip, Int16(1))});
    if (clip <= playlist.clipCount(current.packet)) {
        return Cursor{current.packet, clip};
    }
    const std::optional<Cursor> later = firstPlaceFrom(playlist, current.packet + 1);
    return later ? later : firstPlaceFrom(playlist, 1);
}

AdvanceDecision nextAfterClip(const AdvanceOptions& options, const PlaylistShape& playlist,
                              Cursor ended)
{
    if (!options.nextClip) {
        return {AdvanceDecision::Stay, ended};
    }
    const Int16 clip = checkedClipFrom(playlist, {ended.packet, ended.clip + 1});
    if (clip <= playlist.clipCount(ended.packet)) {
        return {AdvanceDecision::Start, {ended.packet, clip}};
    }
    if (!options.nextPacket) {
        return {AdvanceDecision::Stay, ended};
    }
    std::optional<Cursor> place = firstPlaceFrom(playlist, ended.packet + 1);
    if (!place && options.replay) {
        place = firstPlaceFrom(playlist, 1);
    }
    return place ? AdvanceDecision{AdvanceDecision::Start, *place}
                 : AdvanceDecision{AdvanceDecision::Over, {1, 1}};
}

std::optional<Cursor> lineBehind(Int16 packetCount, const std::function<Int16(Int16)>& lineCount,
                                 Cursor current)
{
    int next = current.clip.value() + 1;
    for (int p = std::max(current.packet.value(), 1); p <= packetCount.value(); ++p) {
        if (next <= lineCount(p).value()) {
            return Cursor{p, next};
        }
        next = 1;
    }
    return std::nullopt;
}

std::optional<Cursor> lineBefore(const std::function<Int16(Int16)>& lineCount, Cursor current)
{
    int upTo = current.clip.value() - 1;
    for (int p = current.packet.value(); p >= 1; --p) {
        const int last = std::min(upTo, lineCount(p).value());
        if (last >= 1) {
            return Cursor{p, last};
        }
        upTo = std::numeric_limits<int>::max();
    }
    return std::nullopt;
}

Cursor previousClip(const PlaylistShape& playlist, Cursor current)
{
    Int16 upTo = current.clip - 1;
    for (int p = current.packet.value(); p >= 1; --p) {
        const Int16 clip = checkedClipUpTo(playlist, {p, upTo});
        if (clip >= 1) {
            return {p, clip};
        }
        upTo = p > 1 ? playlist.clipCount(p - 1) : Int16(0);
    }
    return {current.packet, std::max(current.clip, Int16(1))};
}

} // namespace orvanta
