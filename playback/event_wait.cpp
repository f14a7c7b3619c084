#include "playback/event_wait.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>

namespace orvanta {

void waitInEventLoop(const std::function<bool()>& done, QDeadlineTimer deadline)
{
    if (done()) {
        return;
    }
    QTimer waker; // its only work is to end the sleep
    waker.start(std::chrono::milliseconds(10));
    do {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } while (!done() && !deadline.hasExpired());
}

void yieldToHandlers()
{
    QCoreApplication::processEvents();
}

} // namespace orvanta
