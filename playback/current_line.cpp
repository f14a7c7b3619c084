#include "playback/current_line.h"

#include "core/error_boundary.h"
#include "core/numbers.h"
#include "model/lesson_lines.h"

namespace orvanta {

LessonLine currentLine(const PlaylistState& playlist)
{
    const Int16 p = playlist.CurrentPacket;
    const Int16 q = playlist.CurrentClip;
    if (p < 1 || p > playlist.PlaylistCount) {
        return {};
    }
    const PlaylistEntry& packet = playlist.packet(p);
    const int count = lineCount(packet);
    if (q < 1 || q.value() > static_cast<int>(packet.Clips.size())) {
        return {.text = {}, .number = 0, .count = count};
    }
    const int number = q.value() <= count ? q.value() : 0;
    return {.text = packet.clip(q).Text, .number = number, .count = count};
}

std::vector<LessonMark> currentMarks(const PlaylistState& playlist)
{
    const Int16 p = playlist.CurrentPacket;
    if (p < 1 || p > playlist.PlaylistCount || !playlist.packet(p).HasBrakes) {
        return {};
    }
    std::vector<LessonMark> marks;
    for (const ClipEntry& brake : playlist.packet(p).Clips) {
        resumeNext("time of a brake", [&] {
            marks.push_back(
                {.seconds = decimalValue(brake.Time), .text = brake.Text, .isEnd = false});
        });
    }
    if (!marks.empty()) {
        marks.back().isEnd = true;
    }
    return marks;
}

} // namespace orvanta
