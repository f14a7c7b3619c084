// Ends the process with a message when the interface thread has not been heard of for too long.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace orvanta::session {

class Watchdog
{
public:
    /// onHang is called from a thread of its own and must not return.
    Watchdog(std::chrono::milliseconds limit, std::function<void()> onHang);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void beat() { m_beats.fetch_add(1, std::memory_order_relaxed); }

private:
    void watch();

    const std::chrono::milliseconds m_limit;
    const std::function<void()> m_onHang;
    std::atomic<unsigned long> m_beats{0};
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

} // namespace orvanta::session
