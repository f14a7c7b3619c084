#include "tests/e2e/support/owned_process.h"

#include "tests/e2e/support/wait.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

OwnedProcess::OwnedProcess()
{
    setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

OwnedProcess::~OwnedProcess()
{
    end();
}

void OwnedProcess::end()
{
    if (state() == NotRunning) {
        return;
    }
    constexpr int kGraceMs = 5000;
    terminate();
    if (!waitForFinished(kGraceMs)) {
        kill();
        waitForFinished();
    }
}

QByteArray OwnedProcess::readFirstLine()
{
    if (!waitFor([this] { return canReadLine() || state() == NotRunning; })) {
        return {};
    }
    return readLine().trimmed();
}

static QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double processorSeconds(qint64 pid)
{
    const QByteArray stat = contentOf(u"/proc/%1/stat"_s.arg(pid));
    // The name in brackets may hold blanks; user and system time are fields 14 and 15.
    const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 13) {
        return 0;
    }
    const double ticks = fields[11].toDouble() + fields[12].toDouble();
    return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

static qint64 numberIn(const QString& statusFile, const QByteArray& what)
{
    for (const QByteArray& line : contentOf(statusFile).split('\n')) {
        if (line.startsWith(what + ':')) {
            return line.mid(what.size() + 1).simplified().split(' ').first().toLongLong();
        }
    }
    return 0;
}

qint64 wakeUps(qint64 pid)
{
    qint64 sum = 0;
    const QString tasks = u"/proc/%1/task"_s.arg(pid);
    for (const QString& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        sum += numberIn(tasks + u'/' + task + u"/status"_s, "voluntary_ctxt_switches");
    }
    return sum;
}

qint64 memoryKilobytes(qint64 pid, const QByteArray& what)
{
    return numberIn(u"/proc/%1/status"_s.arg(pid), what);
}

} // namespace orvanta::e2e
