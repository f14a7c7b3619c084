#include "platform/media/mpv_seek.h"

namespace orvanta {

quint64 MpvSeek::begin(double target, Kind kind)
{
    cancel();
    m_target = target;
    m_kind = kind;
    return m_id;
}

void MpvSeek::cancel()
{
    m_target.reset();
    m_accepted = false;
    m_started = false;
    ++m_id;
}

bool MpvSeek::isUnderWay(double target, Kind kind) const
{
    return m_target == target && m_kind == kind;
}

void MpvSeek::accepted(quint64 id)
{
    m_accepted = m_accepted || isNewest(id);
}

void MpvSeek::started()
{
    m_started = m_accepted;
}

bool MpvSeek::playing()
{
    if (!m_started) {
        return false;
    }
    cancel();
    return true;
}

} // namespace orvanta
