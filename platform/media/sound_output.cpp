#include "platform/media/sound_output.h"

#include "core/log.h"

#include <algorithm>
#include <utility>

namespace orvanta {

constexpr std::chrono::seconds kFirstPause(3);
constexpr std::chrono::seconds kLongestPause(60);

static const QByteArray kNullOutput = "null";

SoundOutput::SoundOutput(std::function<void()> askAgain, const MpvOptionList& extra)
    : m_askAgain(std::move(askAgain)),
      m_isNullWanted(std::ranges::count(extra, std::pair(QByteArray("ao"), kNullOutput)) > 0),
      m_pause(kFirstPause)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        m_askAgain();
        m_pause = std::min<std::chrono::milliseconds>(m_pause * 2, kLongestPause);
        watch();
    });
}

void SoundOutput::outputIs(const QByteArray& name)
{
    const bool wasSilent = m_isSilent;
    m_isSilent = name == kNullOutput && !m_isNullWanted;
    if (!name.isEmpty() && !m_isSilent) {
        m_hadSound = true;
        m_pause = kFirstPause;
    }
    if (m_isSilent && !wasSilent) {
        qCInfo(logPlayback, "no sound output: silent");
    }
    watch();
}

void SoundOutput::setRunning(bool running)
{
    const bool begins = running && !m_isRunning;
    m_isRunning = running;
    if (begins && m_isSilent && m_hadSound) {
        m_askAgain();
        m_pause = kFirstPause;
    }
    watch();
}

void SoundOutput::watch()
{
    // Where there never was one, asking would only disturb the clip.
    if (!m_isSilent || !m_isRunning || !m_hadSound) {
        m_retry.stop();
    } else if (!m_retry.isActive()) {
        m_retry.start(m_pause);
    }
}

} // namespace orvanta
