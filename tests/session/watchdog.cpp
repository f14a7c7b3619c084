#include "tests/session/watchdog.h"

#include <utility>

namespace orvanta::session {

using namespace std::chrono_literals;

Watchdog::Watchdog(std::chrono::milliseconds limit, std::function<void()> onHang)
    : m_limit(limit),
      m_onHang(std::move(onHang)),
      m_thread([this] { watch(); })
{}

Watchdog::~Watchdog()
{
    m_stop = true;
    m_thread.join();
}

// Counted in steps of its own: a machine that gives this thread no time either is no hang.
void Watchdog::watch()
{
    constexpr auto kStep = 20ms;
    auto silence = 0ms;
    unsigned long heard = 0;
    while (!m_stop) {
        std::this_thread::sleep_for(kStep);
        const unsigned long now = m_beats.load(std::memory_order_relaxed);
        silence = now == heard ? silence + kStep : 0ms;
        heard = now;
        if (silence > m_limit) {
            m_onHang();
        }
    }
}

} // namespace orvanta::session
