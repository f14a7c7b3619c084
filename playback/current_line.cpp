#include "playback/current_line.h"

namespace orvanta {

LessonLine currentLine(const PlaylistState& playlist)
{
    const Int16 p = playlist.CurrentPacket;
    const Int16 q = playlist.CurrentClip;
    if (p < 1 || p > playlist.PlaylistCount) {
        return {};
    }
    const PlaylistEntry& packet = playlist.packet(p);
    const int count = static_cast<int>(packet.Clips.size());
    if (q < 1 || q.value() > count) {
        return {.text = {}, .number = 0, .count = count};
    }
    return {.text = packet.clip(q).Text, .number = q.value(), .count = count};
}

} // namespace orvanta
