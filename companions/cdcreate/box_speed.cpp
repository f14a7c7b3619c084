#include "companions/cdcreate/box_speed.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

void BoxSpeed::take(const BoxState& state, Moment now)
{
    constexpr std::chrono::seconds kWindow(5);
    if (state.step != m_state.step || state.done < m_state.done) {
        m_samples.clear();
    }
    m_state = state;
    m_samples.push_back({now, state.done});
    while (m_samples.size() > 2 && now - m_samples.front().moment > kWindow) {
        m_samples.pop_front();
    }
}

std::optional<double> BoxSpeed::speed() const
{
    constexpr double kLeastSeconds = 0.2;
    if (m_samples.empty()) {
        return std::nullopt;
    }
    const std::chrono::duration<double> span = m_samples.back().moment - m_samples.front().moment;
    const auto bytes = static_cast<double>(m_samples.back().done - m_samples.front().done);
    return span.count() < kLeastSeconds || bytes <= 0 ? std::nullopt
                                                      : std::optional(bytes / span.count());
}

std::optional<std::chrono::seconds> BoxSpeed::left() const
{
    const auto bytesPerSecond = speed();
    if (!bytesPerSecond || m_state.all <= 0) {
        return std::nullopt;
    }
    const auto bytes = static_cast<double>(std::max<qint64>(m_state.all - m_state.done, 0));
    return std::chrono::seconds(static_cast<qint64>(std::ceil(bytes / *bytesPerSecond)));
}

} // namespace orvanta
