#include "playback/close_sequence.h"

#include "core/error_boundary.h"
#include "core/paths.h"
#include "model/loaders.h"
#include "playback/event_wait.h"

#include <QFile>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kSilent = -10000;

// One round stops a player; the others are for handlers that start it again meanwhile.
constexpr int kMostStopRounds = 20;

CloseSequence::CloseSequence(EngineContext& context, TransportButtons& transport,
                             PositionSlider& slider)
    : m_context(context),
      m_transport(transport),
      m_slider(slider)
{}

void CloseSequence::press()
{
    if (m_context.module.optionIsOn(Option::KeepRunning)) {
        hideProgram();
    } else {
        request();
    }
}

void CloseSequence::request()
{
    if (!m_context.closing) {
        m_context.closing = true;
        m_pending = true;
        m_context.supersede();
    }
}

void CloseSequence::hideProgram()
{
    m_context.onReplacing();
    m_context.supersede();
    m_context.view->hideMainWindow();
    unloadClip();
    m_context.view->setCurrentTime(u"000000,000"_s);
    m_context.view->setClipLength(u"000000,00"_s);
    emptyPlaylist();
}

void CloseSequence::unloadClip()
{
    if (!m_context.player().isEmpty()) {
        m_context.log.stopped();
    }
    m_context.operations.UnloadMedia();
    resumeNext("position", [&] { m_context.operations.SetPlayerPosition(u"0"_s); });
    m_slider.reset();
    m_transport.showUnloaded();
}

void CloseSequence::emptyPlaylist()
{
    PlaylistState& playlist = m_context.module.playlist;
    playlist.OpenedFromExplorer = false;
    clearPlaylist(playlist);
    m_context.setCursor({0, 0});
    m_context.view->clearList();
    m_context.view->setClipText({});
}

void CloseSequence::carryOut()
{
    m_pending = false;
    m_context.view->cancelModalWindows();
    yieldToHandlers();
    stopPlaying();
    yieldToHandlers();
    deleteScratchCopy();
    m_context.view->unloadAll();
}

/// Muted: a paused clip is played for a moment so that it can be stopped. StopIfRunning and not the
/// Stop button, which in a brake packet only pauses and would make this play again, for ever.
void CloseSequence::stopPlaying()
{
    m_context.operations.look();
    m_context.operations.SetControlVolume(kSilent);
    for (int round = 0; round < kMostStopRounds && isStillRunning(); ++round) {
        m_context.operations.StopIfRunning();
    }
}

bool CloseSequence::isStillRunning()
{
    if (m_context.player().state == MediaControl::Paused) {
        m_transport.pressPlay();
    }
    yieldToHandlers();
    m_context.operations.PollPlayer();
    return m_context.player().isRunning();
}

void CloseSequence::deleteScratchCopy() const
{
    QFile::remove(programFile(m_context.module.ApplicationFolder, u"\\temp.vxc"_s));
}

} // namespace orvanta
