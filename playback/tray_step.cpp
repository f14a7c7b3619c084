#include "playback/tray_step.h"

namespace orvanta {

TrayStep::TrayStep(EngineContext& context, TransportButtons& transport, AdvanceStep& advance,
                   CloseSequence& close)
    : m_context(context),
      m_transport(transport),
      m_advance(advance),
      m_close(close)
{}

void TrayStep::run()
{
    TrayRequests& tray = m_context.module.tray;
    if (!m_context.module.optionIsOn(Option::TrayIcon)) {
        return;
    }
    if (tray.TrayRestoreRequest.take()) {
        m_context.view->showMainWindow();
        m_context.view->enableTimer3();
    }
    if (tray.TrayNextRequest.take()) {
        m_advance.run();
        return;
    }
    press();
    if (tray.TrayCloseRequest.take()) {
        m_close.request();
    } else if (tray.TrayPreviousRequest.take()) {
        m_advance.previous();
    }
}

/// A button that was pressed without effect shows the wrong look until the state is taken again.
void TrayStep::press()
{
    TrayRequests& tray = m_context.module.tray;
    const bool pause = tray.TrayPauseRequest.take();
    const bool play = tray.TrayPlayRequest.take();
    const bool stop = tray.TrayStopRequest.take();
    if (pause) {
        m_transport.pressPause();
    }
    if (play) {
        m_transport.pressPlay();
    }
    if (stop) {
        m_transport.pressStop();
    }
    m_context.operations.PollPlayer();
    if (pause || play || stop) {
        m_context.module.playback.StateChanged = true;
    }
}

} // namespace orvanta
