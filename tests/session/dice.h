// Random numbers that are the same everywhere for the same seed.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace orvanta::session {

class Dice
{
public:
    explicit Dice(std::uint32_t seed)
        : m_engine(seed)
    {}

    /// From 0 to count - 1. The library's own distributions differ from one to the next.
    [[nodiscard]] int below(int count)
    {
        return static_cast<int>(m_engine() % static_cast<std::uint32_t>(count));
    }
    [[nodiscard]] bool chance(int percent) { return below(100) < percent; }
    template <typename List> [[nodiscard]] const auto& oneOf(const List& list)
    {
        return list[static_cast<decltype(list.size())>(below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937 m_engine;
};

} // namespace orvanta::session
