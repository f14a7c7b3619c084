// Waiting for conditions; never for a fixed time.
#pragma once

#include <QTest>

namespace orvanta::e2e {

/// Generous, since the machine may be busy with other programs. Milliseconds.
inline constexpr int kPatienceMs = 30000;

/// Serves events until the condition holds. False when the limit passes before.
template <typename Condition>
[[nodiscard]] bool waitFor(Condition condition, int limitMs = kPatienceMs)
{
    return QTest::qWaitFor(std::move(condition), limitMs);
}

} // namespace orvanta::e2e
