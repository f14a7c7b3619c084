#include "playback/player_snapshot.h"

#include "core/numbers.h"

namespace orvanta {

PlayerSnapshot snapshotOf(const MediaControl& control, const PlaybackRecord& record)
{
    return {.state = control.CurrentState(),
            .position = record.CachedPosition,
            .duration = decimalText(control.Duration()),
            .file = control.FileName(),
            .ready = control.isReady(),
            .opening = control.isOpening()};
}

} // namespace orvanta
