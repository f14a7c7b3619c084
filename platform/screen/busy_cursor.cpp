#include "platform/screen/busy_cursor.h"

#include <QCursor>
#include <QGuiApplication>

#include <chrono>
#include <future>

namespace orvanta {

// A cursor can be changed only by the thread that owns the display, and that one would be deep in
// the work. So the work goes to a thread of its own and the interface thread waits for it. It
// paints by itself and not by serving events: a timer or a call from outside would come upon a
// half-read document.
void runWithBusyCursor(const std::function<void()>& work, const std::function<void()>& paint)
{
    constexpr std::chrono::milliseconds kPatience(200);
    constexpr std::chrono::milliseconds kBetweenPictures(100);
    std::future<void> done = std::async(std::launch::async, work);
    const bool late = done.wait_for(kPatience) == std::future_status::timeout;
    if (late) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        do {
            paint();
        } while (done.wait_for(kBetweenPictures) == std::future_status::timeout);
        QGuiApplication::restoreOverrideCursor();
    }
    done.get();
}

} // namespace orvanta
