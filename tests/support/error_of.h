// Run-time errors as values, for one-line expectations.
#pragma once

#include "core/run_time_error.h"

#include <optional>

namespace orvanta::test {

/// The number of the error that the action raises; none when it raises none.
template <typename Action> std::optional<ErrorNumber> errorOf(Action&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return std::nullopt;
}

} // namespace orvanta::test
