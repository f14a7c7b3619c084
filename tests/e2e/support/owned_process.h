// A process that lives no longer than the test that started it.
#pragma once

#include <QProcess>

namespace orvanta::e2e {

/// Ended by its destructor, by its process id alone; killed by the kernel when the test dies.
class OwnedProcess : public QProcess
{
    Q_OBJECT

public:
    OwnedProcess();
    ~OwnedProcess() override;

    /// Asks it to end, then makes it.
    void end();
    /// One line of its standard output, without the line end; empty when none comes in time.
    [[nodiscard]] QByteArray readFirstLine();
};

/// Seconds of processor time that a process has used so far, in all its threads.
[[nodiscard]] double processorSeconds(qint64 pid);
/// How often its threads have waited for something and gone on; of those that are there.
[[nodiscard]] qint64 wakeUps(qint64 pid);
/// A size of a process in kilobytes, by its name in /proc/PID/status: "VmRSS", "VmHWM".
[[nodiscard]] qint64 memoryKilobytes(qint64 pid, const QByteArray& what);

} // namespace orvanta::e2e
