#include "tests/e2e/support/application.h"

#include "tests/e2e/support/wait.h"

#include <algorithm>
#include <csignal>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

QString programPath()
{
    return QStringLiteral(ORVANTA_BUILD_DIR "/orvanta");
}

Application::Application(const Desktop& desktop, const Home& home)
    : m_program(programPath())
{
    QProcessEnvironment environment = desktop.environment();
    environment.insert(u"ORVANTA_HOME"_s, home.folder());
    environment.insert(u"QT_LOGGING_RULES"_s, u"orvanta.*=true"_s);
    environment.insert(u"QT_MESSAGE_PATTERN"_s, u"%{time process}|%{category}: %{message}"_s);
    environment.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    environment.insert(u"QT_ACCESSIBILITY"_s, u"1"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setReadChannel(QProcess::StandardError);
    QObject::connect(&m_process, &QProcess::readyReadStandardError, [this] { readLines(); });
}

void Application::setVariable(const QString& name, const QString& value)
{
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.insert(name, value);
    m_process.setProcessEnvironment(environment);
}

void Application::start(const QStringList& arguments)
{
    m_process.start(m_program, arguments);
}

bool Application::startAndShow(const QStringList& arguments)
{
    start(arguments);
    return peek(u"^orvanta.startup: main window shown"_s).has_value();
}

bool Application::waitForEnd(int limitMs)
{
    const bool ended = waitFor([this] { return !isRunning(); }, limitMs);
    readLines();
    return ended;
}

int Application::exitStatus() const
{
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void Application::sendSignal(int signal) const
{
    if (pid() > 0) {
        ::kill(static_cast<pid_t>(pid()), signal);
    }
}

static LogLine parsed(const QString& line)
{
    const qsizetype bar = line.indexOf(u'|');
    bool isTime = false;
    const double seconds = line.left(std::max<qsizetype>(bar, 0)).trimmed().toDouble(&isTime);
    return isTime ? LogLine{seconds, line.mid(bar + 1)} : LogLine{0, line};
}

void Application::readLines()
{
    m_unfinished += m_process.readAllStandardError();
    for (qsizetype end = m_unfinished.indexOf('\n'); end >= 0; end = m_unfinished.indexOf('\n')) {
        m_lines.push_back(parsed(QString::fromUtf8(m_unfinished.left(end))));
        m_unfinished.remove(0, end + 1);
    }
}

std::optional<std::size_t> Application::indexOf(const QRegularExpression& pattern) const
{
    for (std::size_t i = m_next; i < m_lines.size(); ++i) {
        if (pattern.match(m_lines[i].text).hasMatch()) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> Application::waitForIndex(const QString& pattern, int limitMs)
{
    const QRegularExpression expression(pattern);
    std::optional<std::size_t> index;
    const bool settled = waitFor(
        [&] {
            const bool wasRunning = isRunning();
            readLines();
            index = indexOf(expression);
            return index.has_value() || !wasRunning;
        },
        limitMs);
    return settled ? index : std::nullopt;
}

std::optional<LogLine> Application::peek(const QString& pattern, int limitMs)
{
    const std::optional<std::size_t> index = waitForIndex(pattern, limitMs);
    return index ? std::optional(m_lines[*index]) : std::nullopt;
}

std::optional<LogLine> Application::next(const QString& pattern, int limitMs)
{
    const std::optional<std::size_t> index = waitForIndex(pattern, limitMs);
    if (!index) {
        return std::nullopt;
    }
    m_next = *index + 1;
    return m_lines[*index];
}

std::optional<QStringList> Application::linesUntil(const QString& pattern, int limitMs)
{
    const std::optional<std::size_t> index = waitForIndex(pattern, limitMs);
    if (!index) {
        return std::nullopt;
    }
    QStringList between;
    for (std::size_t i = m_next; i < *index; ++i) {
        between.append(m_lines[i].text);
    }
    m_next = *index + 1;
    return between;
}

QStringList Application::linesMatching(const QString& pattern) const
{
    const QRegularExpression expression(pattern);
    QStringList matching;
    for (const LogLine& line : m_lines) {
        if (expression.match(line.text).hasMatch()) {
            matching.append(line.text);
        }
    }
    return matching;
}

std::string Application::said() const
{
    QString all = u"the program said:\n"_s;
    for (const LogLine& line : m_lines) {
        all += u"  %1 %2\n"_s.arg(line.seconds, 8, 'f', 3).arg(line.text);
    }
    return all.toStdString();
}

int launchAgain(const Desktop& desktop, const Home& home, const QStringList& arguments)
{
    Application later(desktop, home);
    later.start(arguments);
    return later.waitForEnd() ? later.exitStatus() : -1;
}

} // namespace orvanta::e2e
