#include "model/lesson_lines.h"

#include "core/numbers.h"
#include "core/run_time_error.h"

#include <algorithm>

namespace orvanta {

std::optional<double> brakeTime(const PlaylistEntry& packet, int brake)
{
    const QString& text = packet.clip(brake).Time;
    if (text.isEmpty()) {
        return std::nullopt;
    }
    try {
        return decimalValue(text);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

int readableBrakeUpTo(const PlaylistEntry& packet, int brake)
{
    while (brake >= 1 && !brakeTime(packet, brake)) {
        --brake;
    }
    return brake;
}

int lineCount(const PlaylistEntry& packet)
{
    const int entries = static_cast<int>(packet.Clips.size());
    return packet.HasBrakes ? std::max(readableBrakeUpTo(packet, entries) - 1, 0) : entries;
}

} // namespace orvanta
