#include "playback/hand_over_drain.h"

#include "core/error_boundary.h"
#include "core/paths.h"
#include "model/loaders.h"
#include "platform/process/hand_over_queue.h"
#include "playback/event_wait.h"

#include <QFileInfo>

namespace orvanta {

using namespace Qt::StringLiterals;

HandOverDrain::HandOverDrain(EngineContext& context, TransportButtons& transport,
                             PositionSlider& slider, ClipStarter& starter)
    : m_context(context),
      m_transport(transport),
      m_slider(slider),
      m_starter(starter)
{}

void HandOverDrain::serve()
{
    HandOverQueue queue(m_context.module.IniPath);
    if (!queue.hasEntries()) {
        return;
    }
    showProgram();
    // Taken and given back at once: what follows may wait for media, and launches need the lock.
    QStringList lines;
    queue.drain([&](const QStringList& queued) { lines = queued; });
    // Who names files as well wants those.
    if (lines.removeAll(QStringView(kContinueLine).toString()) > 0 && lines.isEmpty()) {
        return m_context.onContinueAsked();
    }
    m_context.module.playlist.OpenedFromExplorer = true;
    replacePlaylist(lines);
    playOrRest();
}

void HandOverDrain::replacePlaylist(const QStringList& lines)
{
    m_context.onReplacing();
    open(lines);
    m_context.view->RebuildTree();
    logLoaded(m_context.module.playlist);
}

void HandOverDrain::showProgram()
{
    if (m_context.module.optionIsOn(Option::KeepRunning)) {
        m_context.view->showMainWindow();
        m_context.view->enableTimer3();
    }
}

static QString withoutQuotes(const QString& line)
{
    const bool quoted = line.size() >= 2 && line.startsWith(u'"') && line.endsWith(u'"');
    return quoted ? line.mid(1, line.size() - 2) : line;
}

/// Launches queue absolute paths; other writers of the queue may mean the folder of their first.
static QString belowFolder(const QString& path, const QString& folder)
{
    const QString below = joinPath(folder, path);
    return !path.startsWith(u'/') && QFileInfo(below).isAbsolute() && QFileInfo::exists(below)
               ? below
               : path;
}

/// The first entry replaces the playlist, the others append to it.
void HandOverDrain::open(const QStringList& lines)
{
    m_context.supersede();
    PlaylistState& playlist = m_context.module.playlist;
    const QString first = withoutQuotes(lines.value(0));
    resumeNext("folder of the queue", [&] { openFolderOf(playlist, first); });
    clearPlaylist(playlist);
    m_loosePacket = 0;
    m_context.view->runBusy([&] { appendAll(lines, folderOfPath(first)); });
    m_context.setCursorAhead({1, 1});
}

/// Runs on another thread when the view says so: no signals, no windows.
void HandOverDrain::appendAll(const QStringList& lines, const QString& folder)
{
    for (const QString& line : lines) {
        resumeNext("queued file", [&] { append(belowFolder(withoutQuotes(line), folder)); });
    }
}

void HandOverDrain::append(const QString& path)
{
    const QString kind = kindOfPath(path);
    if (const auto folder = folderOfLine(path)) {
        appendFolder(*folder);
    } else if (kind == u"VXG") {
        appendGroup(m_context.module.playlist, path);
    } else if (kind == u"VXL") {
        appendPacket(m_context.module.playlist, path);
    } else {
        appendLooseClip(path);
    }
}

void HandOverDrain::appendFolder(const QString& folder)
{
    for (const QString& file : filesOfFolder(folder, m_context.module.TypePattern)) {
        appendLooseClip(file);
    }
}

void HandOverDrain::appendLooseClip(const QString& file)
{
    PlaylistState& playlist = m_context.module.playlist;
    if (m_loosePacket == 0) {
        m_loosePacket = appendEmptyPacket(playlist);
    }
    appendClip(playlist, m_loosePacket, file, clipNameOfPath(file));
}

void HandOverDrain::playOrRest()
{
    if (m_context.module.optionIsOn(Option::StartPlaying) &&
        m_context.module.playlist.entryCount() > 0) {
        m_starter.ListClick(1, 1);
        return;
    }
    if (m_context.player().ready) { // not a clip that this tick has seen end
        rest();
    }
    m_context.view->setFindText({});
    m_context.view->setClipText({});
}

void HandOverDrain::rest()
{
    m_context.operations.StopIfRunning();
    m_slider.reset();
    yieldToHandlers();
    m_context.view->setCurrentTime(u"0.00"_s);
    m_transport.showIdle();
}

} // namespace orvanta
