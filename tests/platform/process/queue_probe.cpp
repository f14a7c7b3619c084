// queue_probe SETTINGS append LINE...      one launch handing its lines over
// queue_probe SETTINGS flood PREFIX        launches without end, each with a line of its own
// queue_probe SETTINGS hold                drains and holds the queue until it is killed

#include "core/run_time_error.h"
#include "platform/process/hand_over_queue.h"

#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

static void say(const char* line)
{
    std::printf("%s\n", line);
    std::fflush(stdout);
}

static void flood(HandOverQueue& queue, const QString& prefix)
{
    say("flooding");
    for (int i = 1;; ++i) {
        queue.append({prefix + QString::number(i)});
    }
}

static void hold(HandOverQueue& queue)
{
    queue.drain([](const QStringList&) {
        say("holding");
        for (;;) {
            ::pause();
        }
    });
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    HandOverQueue queue(arguments.takeFirst());
    const QString action = arguments.takeFirst();
    try {
        if (action == u"append") {
            queue.append(arguments);
        } else if (action == u"flood") {
            flood(queue, arguments.first());
        } else {
            hold(queue);
        }
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "error %d\n", static_cast<int>(error.number()));
        return 1;
    }
    return 0;
}
