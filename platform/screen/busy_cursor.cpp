#include "platform/screen/busy_cursor.h"

#include <QCursor>
#include <QGuiApplication>

#include <chrono>
#include <future>

namespace orvanta {

// A cursor can be changed only by the thread that owns the display, and that one would be deep in
// the work. So the work goes to a thread of its own and the interface thread waits for it.
void runWithBusyCursor(const std::function<void()>& work)
{
    constexpr std::chrono::milliseconds kPatience(200);
    std::future<void> done = std::async(std::launch::async, work);
    const bool late = done.wait_for(kPatience) == std::future_status::timeout;
    if (late) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        done.wait();
        QGuiApplication::restoreOverrideCursor();
    }
    done.get();
}

} // namespace orvanta
