#include "playback/tick_rest.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace orvanta {

constexpr int kQuietTicks = 2; // the second one serves what the first one began
constexpr int kSlower = 10;
constexpr int kSooner = 10; // the tick after the event; time for one that comes in several steps

// The folder, since a settings file is replaced whole, and that behind a link. Being told is
// enough: it is an event.
TickRest::TickRest(QTimer& tick, const QString& settingsFile, std::function<void()> settled)
    : m_tick(tick),
      m_rhythm(tick.intervalAsDuration()),
      m_settled(std::move(settled))
{
    const QString file = QFileInfo(settingsFile).canonicalFilePath();
    if (!file.isEmpty()) {
        m_settings.addPath(QFileInfo(file).path());
    }
}

void TickRest::ticked(bool isQuiet)
{
    const bool mayRest = isQuiet && !m_settings.directories().isEmpty();
    settle(isQuiet);
    m_quietTicks = mayRest ? m_quietTicks + 1 : 0;
    if (m_quietTicks >= kQuietTicks) {
        rest();
    } else {
        goOn(m_rhythm);
    }
}

void TickRest::settle(bool isQuiet)
{
    if (!isQuiet) {
        m_hasRun = true;
        m_stopped.invalidate();
    } else if (!m_stopped.isValid()) {
        m_stopped.start();
    } else if (m_hasRun && m_stopped.hasExpired((m_rhythm * kSlower).count())) {
        m_hasRun = false;
        m_settled();
    }
}

void TickRest::rest()
{
    if (!m_isResting) {
        m_isResting = true;
        m_tick.setInterval(m_rhythm * kSlower);
        QCoreApplication::instance()->installEventFilter(this);
    }
}

void TickRest::goOn(std::chrono::milliseconds interval)
{
    if (m_isResting) {
        m_isResting = false;
        QCoreApplication::instance()->removeEventFilter(this);
    }
    if (m_tick.intervalAsDuration() != interval) {
        m_tick.setInterval(interval);
    }
}

bool TickRest::eventFilter(QObject* receiver, QEvent* /*event*/)
{
    if (receiver != &m_tick) {
        m_quietTicks = 0;
        goOn(m_rhythm / kSooner);
    }
    return false;
}

} // namespace orvanta
