// The playlist as the advance rules see it, with the check marks of the list.
#pragma once

#include "model/module1.h"
#include "playback/advance.h"
#include "playback/playback_view.h"

namespace orvanta {

/// Both arguments must outlive the shape. A packet that the list does not show yet counts as
/// checked. The rules raise 9 for a packet outside the playlist.
[[nodiscard]] PlaylistShape shapeOf(const PlaylistState& playlist, const PlaybackView& view);

} // namespace orvanta
