#include "platform/file_types/desktop_caches.h"

#include "core/log.h"
#include "platform/file_types/desktop_folders.h"

#include <chrono>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kCoalescing = 50ms;
constexpr int kLongestEnding = 10000; // milliseconds

DesktopCaches::DesktopCaches()
{
    m_types.program = u"update-mime-database"_s;
    m_types.folder = u"/mime"_s;
    m_entries.program = u"update-desktop-database"_s;
    m_entries.folder = u"/applications"_s;
    m_worker.setMaxThreadCount(1);
    m_worker.setThreadPriority(QThread::LowPriority);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kCoalescing);
    connect(&m_soon, &QTimer::timeout, this, &DesktopCaches::startWanted);
    for (Tool* tool : {&m_types, &m_entries}) {
        connect(&tool->process, &QProcess::finished, this, &DesktopCaches::startWanted);
        connect(&tool->process, &QProcess::errorOccurred, this, [tool](QProcess::ProcessError) {
            qCInfo(logDesktop, "%ls: %ls", qUtf16Printable(tool->program),
                   qUtf16Printable(tool->process.errorString()));
        });
    }
}

DesktopCaches::~DesktopCaches()
{
    m_soon.stop();
    for (Tool* tool : {&m_types, &m_entries}) {
        tool->process.disconnect(this);
        tool->process.waitForFinished(kLongestEnding);
    }
    startWanted();
    for (Tool* tool : {&m_types, &m_entries}) {
        tool->process.waitForFinished(kLongestEnding);
    }
}

void DesktopCaches::refreshTypes()
{
    want(m_types);
}

void DesktopCaches::refreshEntries()
{
    want(m_entries);
}

void DesktopCaches::want(Tool& tool)
{
    tool.isWanted = true;
    m_soon.start();
}

void DesktopCaches::startWanted()
{
    for (Tool* tool : {&m_types, &m_entries}) {
        if (tool->isWanted && tool->process.state() == QProcess::NotRunning) {
            start(*tool);
        }
    }
}

void DesktopCaches::start(Tool& tool)
{
    tool.isWanted = false;
    qCInfo(logDesktop, "running %ls", qUtf16Printable(tool.program));
    tool.process.setStandardOutputFile(QProcess::nullDevice());
    tool.process.setStandardErrorFile(QProcess::nullDevice()); // it comments on others' packages
    tool.process.start(tool.program, {DesktopFolders::dataHome() + tool.folder});
}

void DesktopCaches::runLater(std::function<void()> work)
{
    m_worker.start(std::move(work));
}

bool DesktopCaches::isBusy() const
{
    return m_soon.isActive() || m_worker.activeThreadCount() > 0 ||
           m_types.process.state() != QProcess::NotRunning ||
           m_entries.process.state() != QProcess::NotRunning;
}

} // namespace orvanta
