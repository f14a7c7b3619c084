// Processes that are killed at a given moment of their work.
#pragma once

#include <chrono>
#include <functional>

namespace orvanta::kill {

using Work = std::function<void()>;

/// Runs the work in a child and kills it (-9) where it is about to make its system call of this
/// number, from 1, counting those that change a file or a folder. Returns false when the work
/// ended before. Ends the program where processes cannot be traced.
[[nodiscard]] bool killAtWrite(const Work& work, int number);

/// How many such system calls the work makes.
[[nodiscard]] int countWrites(const Work& work);

/// Kills the child after this time, wherever it stands.
void killAfter(const Work& work, std::chrono::microseconds delay);

} // namespace orvanta::kill
