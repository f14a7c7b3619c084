#include "companions/cdcreate/box_work.h"

namespace orvanta {

void BoxWork::goOn() const
{
    if (m_isStopped) {
        throw BoxFailure(BoxProblem::Stopped);
    }
}

void BoxWork::say()
{
    m_said = std::chrono::steady_clock::now();
    if (m_report) {
        m_report(m_state);
    }
}

void BoxWork::begin(BoxStep step, qint64 all)
{
    goOn();
    m_state = {step, 0, all};
    say();
}

void BoxWork::reach(qint64 done)
{
    constexpr std::chrono::milliseconds kPause(100);
    goOn();
    m_state.done = done;
    if (done == m_state.all || std::chrono::steady_clock::now() - m_said > kPause) {
        say();
    }
}

} // namespace orvanta
