// The player at one moment, in values: what the rules and steps of the engine go by.
#pragma once

#include "core/numbers.h"
#include "model/module1.h"
#include "platform/media/media_control.h"

namespace orvanta {

/// State, file, ready and opening are the control's; a clip whose end the poll has just served
/// counts as stopped still, although it is unloaded.
struct PlayerSnapshot
{
    MediaControl::State state = MediaControl::NotLoaded;
    QString position; // seconds, decimal text: as the last poll found it or a seek asked for it
    QString duration; // seconds, decimal text; 0 while unknown
    QString file;     // given to the control last; empty when unloaded
    bool ready = false;
    bool opening = false;

    [[nodiscard]] bool isLoaded() const { return state != MediaControl::NotLoaded; }
    [[nodiscard]] bool isRunning() const { return state == MediaControl::Running; }
    /// Neither a clip is open nor is one being opened.
    [[nodiscard]] bool isEmpty() const { return !ready && !opening; }
};

/// The one place where the control is looked at.
[[nodiscard]] inline PlayerSnapshot snapshotOf(const MediaControl& control,
                                               const PlaybackRecord& record)
{
    return {.state = control.CurrentState(),
            .position = record.CachedPosition,
            .duration = decimalText(control.Duration()),
            .file = control.FileName(),
            .ready = control.isReady(),
            .opening = control.isOpening()};
}

} // namespace orvanta
