#include "app/player_hold.h"

#include "platform/media/media_control.h"

#include <utility>

namespace orvanta {

PlayerHold::PlayerHold(MediaControl& control)
    : m_control(control)
{}

bool PlayerHold::hold()
{
    if (m_control.CurrentState() != MediaControl::Running) {
        return false;
    }
    m_heldFile = m_control.FileName();
    m_control.Pause();
    return true;
}

void PlayerHold::release()
{
    const QString held = std::exchange(m_heldFile, QString());
    if (!held.isEmpty() && m_control.FileName() == held &&
        m_control.CurrentState() == MediaControl::Paused) {
        m_control.Run();
    }
}

} // namespace orvanta
