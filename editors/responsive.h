// Work that may turn out to be long, while the windows stay painted.
#pragma once

#include <functional>

namespace orvanta {

/// Runs the work in another thread and returns when it is done. Work that takes longer than a blink
/// shows the busy cursor, and the windows go on painting meanwhile; keys and clicks wait for its
/// end. The work must not touch windows and must not throw.
void runResponsively(const std::function<void()>& work);

} // namespace orvanta
