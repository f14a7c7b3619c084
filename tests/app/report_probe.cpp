// report_probe NUMBER: a program whose handler fails with this error number, inside the event loop.

#include "app/run_time_report.h"
#include "core/error_boundary.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

using namespace orvanta;

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const auto number = static_cast<ErrorNumber>(QByteArray(argv[1]).toInt());
    const RunTimeReport report([] {
        std::puts("released");
        std::fflush(stdout);
    });
    const HandlerBoundary boundary([&](const RuntimeError& error) { report(error); });
    QTimer::singleShot(0, boundary([&] { throw RuntimeError(number); }));
    return QApplication::exec();
}
