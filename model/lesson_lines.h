// The lines of a packet, as one plays and counts them.
#pragma once

#include "model/module1.h"

#include <optional>

namespace orvanta {

/// Seconds. None where the text is no number: a clip that was dropped among the brakes, a spoiled
/// file. Asked many times a second, and so not worth a line in the log. brake: from 1.
[[nodiscard]] std::optional<double> brakeTime(const PlaylistEntry& packet, int brake);

/// The last brake at or before this one whose time can be read; 0 without one.
[[nodiscard]] int readableBrakeUpTo(const PlaylistEntry& packet, int brake);

/// Clips; of brakes the spans between them, so that the end mark and what stands behind it are
/// none.
[[nodiscard]] int lineCount(const PlaylistEntry& packet);

} // namespace orvanta
