#include "playback/hand_over_drain.h"

#include "core/error_boundary.h"
#include "core/paths.h"
#include "model/loaders.h"
#include "model/texts.h"
#include "platform/process/hand_over_queue.h"
#include "playback/event_wait.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

HandOverDrain::HandOverDrain(EngineContext& context, TransportButtons& transport,
                             PositionSlider& slider, ClipStarter& starter)
    : m_context(context),
      m_transport(transport),
      m_slider(slider),
      m_starter(starter)
{}

/// Taken and given back at once: what follows may wait for media, and launches need the lock. In
/// settings that cannot be written the lines stay, and are taken no second time.
QStringList HandOverDrain::takeQueued(HandOverQueue& queue)
{
    const QString count = queue.countText();
    const auto note = qScopeGuard([&] { m_stuckCount = queue.wasReset() ? QString() : count; });
    QStringList lines;
    queue.drain([&](const QStringList& queued) { lines = queued; });
    return lines;
}

void HandOverDrain::serve()
{
    HandOverQueue queue(m_context.module.IniPath);
    QStringList& handedOver = m_context.module.HandedOver;
    const bool isQueued = queue.hasEntries() && queue.countText() != m_stuckCount;
    if (!isQueued && handedOver.isEmpty()) {
        return;
    }
    showProgram();
    QStringList lines = isQueued ? takeQueued(queue) : QStringList();
    lines += std::exchange(handedOver, {});
    // Who names files as well wants those.
    if (lines.removeAll(QStringView(kContinueLine).toString()) > 0 && lines.isEmpty()) {
        return m_context.onContinueAsked();
    }
    if (lines.isEmpty()) {
        return; // a count without its lines asks for nothing
    }
    if (replacePlaylist(lines)) {
        m_context.module.playlist.OpenedFromExplorer = true;
        playOrRest();
    }
}

bool HandOverDrain::replacePlaylist(const QStringList& lines)
{
    m_context.onReplacing();
    const bool isOpen = open(lines);
    m_context.view->RebuildTree();
    logLoaded(m_context.module.playlist);
    return isOpen;
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

/// The first entry replaces the playlist, the others append to it. Where none of them can be
/// opened, what is open stays.
bool HandOverDrain::open(const QStringList& lines)
{
    m_context.supersede();
    PlaylistState& playlist = m_context.module.playlist;
    std::vector<PlaylistEntry> packets = std::exchange(playlist.Playlist, {}); // not copied
    PlaylistState before = playlist;
    const QString first = withoutQuotes(lines.value(0));
    resumeNext("folder of the queue", [&] { openFolderOf(playlist, first); });
    clearPlaylist(playlist);
    m_loosePacket = 0;
    m_isTooMuch = false;
    m_isThere = false;
    m_isSpoilt = false;
    m_context.view->runBusy([&] { appendAll(lines, folderOfPath(first)); });
    if (isNothing() && (m_isTooMuch || before.PlaylistCount > 0)) {
        sayUnplayable(lines);
        before.Playlist = std::move(packets);
        before.revision = playlist.revision + 1;
        playlist = std::move(before);
        return false;
    }
    m_context.setCursorToOpened();
    return true;
}

/// A document without entries is something, one that is spoilt is not.
bool HandOverDrain::isNothing() const
{
    const PlaylistState& playlist = m_context.module.playlist;
    return !m_isThere || playlist.PlaylistCount == 0 || (m_isSpoilt && playlist.entryCount() == 0);
}

void HandOverDrain::sayUnplayable(const QStringList& lines)
{
    qCInfo(logErrors, "nothing of this can be opened: %ls", qUtf16Printable(lines.join(u", "_s)));
    const TextLanguage language =
        textLanguage(m_context.module.Language.value(), TextLanguage::Russian);
    m_context.view->setClipText(interfaceText(u"Form2", u"Text2.unplayable", language)
                                    .arg(fileNameOfPath(withoutQuotes(lines.value(0)))));
}

/// Runs on another thread when the view says so: no signals, no windows.
void HandOverDrain::appendAll(const QStringList& lines, const QString& folder)
{
    for (const QString& line : lines) {
        const QString path = belowFolder(withoutQuotes(line), folder);
        m_isThere = m_isThere || folderOfLine(path) || QFileInfo::exists(path);
        m_isSpoilt = !resumeNext("queued file", [&] { appendWithinRoom(path); }) || m_isSpoilt;
    }
}

void HandOverDrain::appendWithinRoom(const QString& path)
{
    try {
        withMemoryErrors([&] { append(path); });
    } catch (const RuntimeError& error) {
        m_isTooMuch = m_isTooMuch || error.number() == ErrorNumber::OutOfMemory;
        throw;
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
