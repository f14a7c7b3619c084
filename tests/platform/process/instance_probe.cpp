// instance_probe FOLDER [LINE...]: one instance of a program. Prints "first" and then the lines
// that are handed to it and each raise it is asked for, until a signal ends it in good order
// ("ended"); a later one raises the first and prints "later".

#include "platform/process/end_signals.h"
#include "platform/process/single_instance.h"
#include "platform/screen/window_stacking.h"

#include <QCoreApplication>

#include <cstdio>

using namespace orvanta;
using namespace Qt::StringLiterals;

static void say(const QByteArray& line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

static int runFirst(SingleInstance& instance)
{
    instance.listen();
    const EndSignals signals;
    QObject::connect(&signals, &EndSignals::endRequested, qApp, &QCoreApplication::quit);
    QObject::connect(&instance, &SingleInstance::linesHandedOver, qApp,
                     [](const QStringList& lines) { say("lines " + lines.join(u"|"_s).toUtf8()); });
    QObject::connect(&instance, &SingleInstance::raiseRequested, qApp,
                     [](const QString& token) { say("raise " + token.toUtf8()); });
    say("first");
    const int status = QCoreApplication::exec();
    say("ended");
    return status;
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    SingleInstance instance(QString::fromLocal8Bit(argv[1]));
    if (instance.isFirst()) {
        return runFirst(instance);
    }
    const QStringList lines = QCoreApplication::arguments().mid(2);
    say(instance.raiseFirst(launchActivationToken(), lines) ? "later" : "later, not heard");
    return 0;
}
