#include "companions/cdcreate/image_program.h"

#include "core/log.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

namespace orvanta {

using namespace Qt::StringLiterals;

QString imageProgram()
{
    return QStandardPaths::findExecutable(u"xorriso"_s);
}

namespace {

/// Ends the program before it goes itself: QProcess alone would wait for it.
class ImageProcess : public QProcess
{
public:
    ImageProcess()
    {
        QProcessEnvironment plain = QProcessEnvironment::systemEnvironment();
        plain.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        setProcessEnvironment(plain);
        setProcessChannelMode(MergedChannels);
        setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    }
    ~ImageProcess() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished(-1);
        }
    }
};

} // namespace

/// Its complaints without what it always says.
static QString lastWords(const QString& said)
{
    QStringList lines;
    for (const QString& line : said.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.contains(u"FAILURE"_s) || line.contains(u"FATAL"_s)) {
            lines.append(line.trimmed());
        }
    }
    return lines.isEmpty() ? said.trimmed().section(u'\n', -1) : lines.first();
}

[[noreturn]] static void fail(const QString& said)
{
    qCInfo(logErrors, "the image program failed: %ls", qUtf16Printable(said));
    const bool isFull = said.contains(u"No space left"_s) || said.contains(u"quota"_s) ||
                        said.contains(u"exceeds free space"_s);
    throw BoxFailure(isFull ? BoxProblem::NoRoom : BoxProblem::ProgramFailed, lastWords(said));
}

void runImageProgram(const QStringList& arguments, BoxWork& work, const BytesDone& bytesDone)
{
    constexpr int kPauseMs = 50;
    const QString program = imageProgram();
    if (program.isEmpty()) {
        throw BoxFailure(BoxProblem::NoProgram, u"xorriso"_s);
    }
    ImageProcess process;
    // -no_rc: what a user has told it for other work does not count here.
    process.start(program, QStringList(u"-no_rc"_s) + arguments);
    QString said;
    while (process.state() != QProcess::NotRunning) {
        process.waitForFinished(kPauseMs);
        const QString more = QString::fromUtf8(process.readAll());
        said += more;
        work.reach(bytesDone(more));
    }
    if (process.error() == QProcess::FailedToStart) {
        throw BoxFailure(BoxProblem::NoProgram, program);
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        fail(said + QString::fromUtf8(process.readAll()));
    }
}

} // namespace orvanta
