// Kills whatever writes, at every system call that does and at random, and looks what is left:
// what was there before, or what was to be, and nothing in the way of who writes next.

#include "tests/kill/scenario.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <set>
#include <unistd.h>

namespace orvanta::kill {

namespace {

class Trial
{
public:
    explicit Trial(Scenario scenario)
        : m_scenario(std::move(scenario))
    {
        if (!m_scenario.settled) {
            m_scenario.settled = m_scenario.observe;
        }
        m_scenario.prepare();
        m_states.insert(m_scenario.observe());
        const auto begin = std::chrono::steady_clock::now();
        for (const Work& step : m_scenario.steps) {
            step();
            m_states.insert(m_scenario.observe());
        }
        m_lasts = std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now() - begin);
        afterwards()();
        m_last = m_scenario.settled();
    }

    /// At most so many kills, evenly at the calls, the rest at random. Returns how many trials went
    /// wrong.
    int run(int kills)
    {
        m_scenario.prepare();
        const int calls = countWrites(work());
        const int byCall = std::min(calls, (kills + 1) / 2);
        for (int i = 0; i < byCall; ++i) {
            const int number = 1 + static_cast<int>(static_cast<long>(i) * calls / byCall);
            tryOnce([&] { return killAtWrite(work(), number); }, number);
        }
        for (int i = byCall; i < kills; ++i) {
            const auto most = static_cast<unsigned>(m_lasts.count() * 2 + 200);
            const std::chrono::microseconds delay(m_random() % most);
            tryOnce(
                [&] {
                    killAfter(work(), delay);
                    return true;
                },
                0);
        }
        if (m_killed < kills * 9 / 10) {
            complain("nearly every kill must come before the end", 0);
        }
        std::printf("%-10s %5d kills, %d of them at %d writing calls, %d wrong\n", m_scenario.name,
                    m_killed, byCall, calls, m_wrong);
        std::fflush(stdout);
        return m_wrong;
    }

private:
    [[nodiscard]] Work work() const
    {
        return [this] {
            for (const Work& step : m_scenario.steps) {
                step();
            }
        };
    }

    [[nodiscard]] Work afterwards() const
    {
        return m_scenario.afterwards ? m_scenario.afterwards : work();
    }

    template <typename Kill> void tryOnce(const Kill& kill, int number)
    {
        m_scenario.prepare();
        m_killed += kill() ? 1 : 0; // the work is not always the same number of calls
        if (!m_states.contains(m_scenario.observe())) {
            complain("half of something is there", number);
        }
        // In a process of its own: this one still knows the files as they were.
        (void)countWrites(afterwards());
        if (m_scenario.settled() != m_last) {
            complain("what is done afterwards does not end as it should", number);
        }
        const QByteArray leftovers = m_scenario.leftovers();
        if (!leftovers.isEmpty()) {
            complain(leftovers.constData(), number);
        }
    }

    void complain(const char* what, int number)
    {
        ++m_wrong;
        std::printf("%s, call %d (0: at random): %s\n", m_scenario.name, number, what);
    }

    Scenario m_scenario;
    std::set<QByteArray> m_states;
    QByteArray m_last;
    std::chrono::microseconds m_lasts{};
    std::mt19937 m_random{20010501};
    int m_killed = 0;
    int m_wrong = 0;
};

} // namespace

static int killAll(int kills)
{
    const QTemporaryDir folder;
    const std::vector<Scenario> all = scenarios(folder.path());
    int wrong = 0;
    for (const Scenario& scenario : all) {
        wrong += Trial(scenario).run(std::max(1, kills / static_cast<int>(all.size())));
    }
    return wrong;
}

} // namespace orvanta::kill

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    const int kills = count > 1 ? QByteArray(arguments[1]).toInt() : 0;
    if (kills <= 0) {
        std::fprintf(stderr, "usage: kill_writers KILLS\n");
        return 2;
    }
    return orvanta::kill::killAll(kills) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
