// How fast a box comes to be, and how long it will take.
#pragma once

#include "companions/cdcreate/box_work.h"
#include "model/texts.h"

#include <QString>

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

/// "1.5 MB", in powers of 1000.
[[nodiscard]] QString sizeText(qint64 bytes, TextLanguage language);

/// "Writing: 12.5 MB of 40 MB, 55 MB/s, 0:03 left".
[[nodiscard]] QString progressText(const BoxState& state, const BoxSpeed& speed,
                                   TextLanguage language);

/// Why there is no box, in one sentence.
[[nodiscard]] QString failureText(const BoxFailure& failure, TextLanguage language);

} // namespace orvanta
