// A busy cursor for work that turns out to be long.
#pragma once

#include <functional>

namespace orvanta {

/// Runs the work to its end and returns then; the interface thread does nothing else meanwhile, so
/// the work may use what belongs to it (but no windows). After 200 ms the busy cursor shows. What
/// the work raises is raised here.
void runWithBusyCursor(const std::function<void()>& work);

} // namespace orvanta
