// How fast a box comes to be, and how long it will take: pure rules.
#pragma once

#include "companions/cdcreate/box_work.h"

#include <chrono>
#include <deque>
#include <optional>

namespace orvanta {

/// Goes by the last seconds: a disk is fast first and slow then.
class BoxSpeed
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// What the work says, and when.
    void take(const BoxState& state, Moment now);

    /// Bytes per second; nothing before there is anything to go by.
    [[nodiscard]] std::optional<double> speed() const;
    /// Of the present step.
    [[nodiscard]] std::optional<std::chrono::seconds> left() const;

private:
    struct Sample
    {
        Moment moment;
        qint64 done = 0;
    };

    BoxState m_state;
    std::deque<Sample> m_samples;
};

} // namespace orvanta
