// What another thread finds out, waited for a moment only.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace orvanta {

/// Belongs to both threads: share it. Any thread.
template <typename Answer> class FirstAnswer
{
public:
    void put(Answer answer)
    {
        const std::lock_guard lock(m_mutex);
        m_answer = std::move(answer);
        m_isThere.notify_all();
    }

    /// Nothing when it takes longer.
    [[nodiscard]] std::optional<Answer> waitFor(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        m_isThere.wait_for(lock, patience, [this] { return m_answer.has_value(); });
        return m_answer;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_isThere;
    std::optional<Answer> m_answer;
};

} // namespace orvanta
