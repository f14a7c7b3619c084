// Waiting inside a handler: the other handlers run meanwhile.
#pragma once

#include <QDeadlineTimer>

#include <functional>

namespace orvanta {

/// Sleeps in the event loop until done() holds or the time is over; looks again after every event
/// and at least every 10 ms. The caller must expect that any handler has run meanwhile.
void waitInEventLoop(const std::function<bool()>& done,
                     QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever));

/// Lets the events that are pending run, without waiting.
void yieldToHandlers();

} // namespace orvanta
