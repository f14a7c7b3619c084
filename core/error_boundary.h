// The three ways in which a handler of the system treats a failing step.
#pragma once

#include "core/log.h"
#include "core/run_time_error.h"

#include <functional>
#include <new>
#include <utility>

namespace orvanta {

/// Says in the log which error was passed over, and where.
void logSwallowed(const RuntimeError& error, const char* where);

/// Runs it; that memory runs out is a run-time error like the others.
template <typename Action> void withMemoryErrors(Action&& action)
{
    try {
        std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

/// Runs one statement; when it fails, the next one runs all the same. Returns whether it succeeded.
template <typename Statement> bool resumeNext(const char* where, Statement&& statement)
{
    try {
        withMemoryErrors(std::forward<Statement>(statement));
        return true;
    } catch (const RuntimeError& error) {
        logSwallowed(error, where);
        return false;
    }
}

/// A condition that fails is false: its body is skipped.
template <typename Condition>
[[nodiscard]] bool conditionHolds(const char* where, Condition&& condition)
{
    bool holds = false;
    resumeNext(where, [&] { holds = condition(); });
    return holds;
}

/// Runs the rest of a handler; an error ends it silently.
template <typename Rest> void trapped(const char* where, Rest&& rest)
{
    resumeNext(where, std::forward<Rest>(rest));
}

/// The boundary between the desktop's signals and the system's handlers: no exception crosses it.
/// An error that reaches it goes to the report, which ends the program.
class HandlerBoundary
{
public:
    using Report = std::function<void(const RuntimeError&)>;

    HandlerBoundary() = default;
    explicit HandlerBoundary(Report report)
        : m_report(std::move(report))
    {}

    /// Wraps a handler for connect(). Arguments of the signal are passed through.
    template <typename Handler> [[nodiscard]] auto operator()(Handler handler) const
    {
        return [report = m_report, handler = std::move(handler)](auto&&... args) mutable {
            try {
                withMemoryErrors([&] { handler(std::forward<decltype(args)>(args)...); });
            } catch (const RuntimeError& error) {
                if (report) {
                    report(error);
                } else {
                    logSwallowed(error, "handler without a report");
                }
            }
        };
    }

private:
    Report m_report;
};

} // namespace orvanta
