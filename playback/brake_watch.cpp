#include "playback/brake_watch.h"

#include <utility>

namespace orvanta {

constexpr double kBetweenReports = 0.15; // seconds, at the most

BrakeWatch::BrakeWatch(EngineContext& context, BrakeStep& brakes, std::function<void()> due)
    : m_context(context),
      m_brakes(brakes)
{
    m_near.setSingleShot(true);
    m_near.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_near, &QTimer::timeout, &m_near,
                     [this] { m_context.operations.RefreshPosition(); });
    m_due.setSingleShot(true);
    m_due.setInterval(0);
    QObject::connect(&m_due, &QTimer::timeout, &m_due, std::move(due));
}

void BrakeWatch::positionReported()
{
    const auto left = m_brakes.secondsToNext(m_context.operations.secondsNow());
    if (m_context.view == nullptr || m_context.view->isSliderHeld() || !left) {
        return;
    }
    const double real = *left / m_context.operations.Speed();
    if (real < 0) {
        m_due.start();
    } else if (real < kBetweenReports) {
        m_near.start(1 + static_cast<int>(real * 1000));
    }
}

} // namespace orvanta
