// A copy of the test's process, for what only several processes can show.
#pragma once

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// Of the build that counts lines; in others it is null.
extern "C" __attribute__((weak)) void __gcov_dump(); // NOLINT

namespace orvanta::test {

/// Whether this is the build that counts the lines that are run.
inline bool countsLines()
{
    return __gcov_dump != nullptr;
}

/// Adds what this process has run to the counts, which leaving without clean-up would lose. They
/// belong to whoever has built the program.
inline void keepCounts()
{
    if (countsLines()) {
        [[maybe_unused]] const int own = seteuid(0); // refused where it never was
        __gcov_dump();
    }
}

class Child
{
public:
    /// Runs the action in a child process, which ends without the test's own clean-up.
    template <typename Action>
    explicit Child(const Action& action)
        : m_process(fork())
    {
        if (m_process == 0) {
            action();
            keepCounts();
            _exit(0);
        }
    }
    ~Child() { kill(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Waits for its end; true when it ended by itself and well.
    [[nodiscard]] bool endsWell()
    {
        int status = 0;
        const bool ended = waitpid(m_process, &status, 0) == m_process;
        m_process = -1;
        return ended && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    /// kill -9, wherever it stands.
    void kill()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            waitpid(m_process, nullptr, 0);
            m_process = -1;
        }
    }

    void killAfter(std::chrono::microseconds delay)
    {
        std::this_thread::sleep_for(delay);
        kill();
    }

private:
    pid_t m_process;
};

} // namespace orvanta::test
