// How the cost of work grows with its size: a ratio, which a busy machine hardly changes.
#pragma once

#include <algorithm>
#include <ctime>

namespace orvanta::test {

/// Processor time of this process, in seconds.
template <typename Work> [[nodiscard]] double cpuSeconds(const Work& work)
{
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// The least of five rounds.
template <typename Work> [[nodiscard]] double leastCpuSeconds(const Work& work)
{
    double least = cpuSeconds(work);
    for (int round = 1; round < 5; ++round) {
        least = std::min(least, cpuSeconds(work));
    }
    return least;
}

/// How many times the small cost the large one is. What is less than atLeast seconds is noise and
/// counts as that.
[[nodiscard]] inline double growth(double small, double large, double atLeast = 0.001)
{
    return large / std::max(small, atLeast);
}

} // namespace orvanta::test
