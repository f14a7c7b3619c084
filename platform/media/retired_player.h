// The end of a player, which may take as long as a disk wants.
#pragma once

#include "platform/media/mpv_handle.h"
#include "platform/media/mpv_renderer.h"

#include <chrono>
#include <memory>

namespace orvanta {

/// A little longer than a program that ends waits for it: that leaves, and takes nothing down of
/// what a player still at work uses.
constexpr std::chrono::milliseconds kPatienceAtEnd(2500);

/// A player that is no longer wanted. The renderer goes before its player, or the library aborts.
struct RetiredPlayer
{
    MpvHandle::Owner player;
    std::unique_ptr<MpvRenderer> renderer;
};

/// Destroys it on a thread of its own and waits for that no longer than this: the library waits for
/// its reading thread, and that for the disk. Until the disk answers the player stays.
void retire(RetiredPlayer player, std::chrono::milliseconds patience);

} // namespace orvanta
