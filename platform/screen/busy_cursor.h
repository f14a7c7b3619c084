// A busy cursor for work that turns out to be long.
#pragma once

#include <functional>

namespace orvanta {

/// Runs the work to its end and returns then; the interface thread serves no events meanwhile, so
/// the work may use what belongs to it (but no windows). After 200 ms the busy cursor shows, and
/// paint runs every 100 ms on the interface thread: it must not touch what the work uses. What the
/// work raises is raised here.
void runWithBusyCursor(
    const std::function<void()>& work, const std::function<void()>& paint = [] {});

} // namespace orvanta
