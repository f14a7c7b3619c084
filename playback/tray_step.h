// The tick's tray step: what was asked for in the tray's menu.
#pragma once

#include "playback/advance_step.h"

namespace orvanta {

class TrayStep
{
public:
    TrayStep(EngineContext& context, TransportButtons& transport, AdvanceStep& advance,
             CloseSequence& close);

    /// Takes the requests, while the option has the icon. Raises what advancing raises.
    void run();

private:
    void press();

    EngineContext& m_context;
    TransportButtons& m_transport;
    AdvanceStep& m_advance;
    CloseSequence& m_close;
};

} // namespace orvanta
