#include "playback/playback_log.h"

#include "core/log.h"

namespace orvanta {

void PlaybackLog::start(Cursor place, const QString& text)
{
    running();
    qCInfo(logPlayback, "start %d %d %ls", place.packet.value(), place.clip.value(),
           qUtf16Printable(text));
}

void PlaybackLog::ended(Cursor place) const
{
    qCInfo(logPlayback, "ended %d %d", place.packet.value(), place.clip.value());
}

void PlaybackLog::again(Cursor place, int round)
{
    running();
    qCInfo(logPlayback, "again %d %d %d", place.packet.value(), place.clip.value(), round);
}

void PlaybackLog::waiting(Cursor place) const
{
    qCInfo(logPlayback, "waiting %d %d", place.packet.value(), place.clip.value());
}

void PlaybackLog::stopped()
{
    if (!m_saidStopped) {
        qCInfo(logPlayback, "stopped");
    }
    m_saidStopped = true;
}

} // namespace orvanta
