// A program of the build folder, run as a process of its own.
#pragma once

#include <QProcess>
#include <QStringList>

namespace orvanta {

inline QString builtProgram(const char* name)
{
    return QStringLiteral(ORVANTA_BUILD_DIR "/") + QString::fromUtf8(name);
}

/// Ends the process with the test, whatever happens.
class Probe : public QProcess
{
public:
    ~Probe() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished();
        }
    }

    void startProgram(const char* name, const QStringList& arguments)
    {
        start(builtProgram(name), arguments);
        if (!waitForStarted()) {
            qFatal("%s cannot be started", name);
        }
    }

    /// Waits for the next whole line on standard output; empty when none comes in time.
    QByteArray nextLine(int timeoutMs = 20000)
    {
        while (!canReadLine() && waitForReadyRead(timeoutMs)) {
        }
        return readLine().trimmed();
    }
};

} // namespace orvanta
