// The run-time error that an action raises.
#pragma once

#include "core/run_time_error.h"

namespace orvanta {

/// The error's number; 0 when none is raised.
template <typename Action> [[nodiscard]] int errorOf(const Action& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

} // namespace orvanta
