#include "playback/practice_step.h"

#include "core/error_boundary.h"
#include "core/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

PracticeStep::PracticeStep(EngineContext& context, PracticeReports reports)
    : m_context(context),
      m_reports(std::move(reports))
{
    m_wait.setSingleShot(true);
    m_wait.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_wait, &QTimer::timeout, &m_wait, [this] { m_reports.waitRanOut(); });
}

PracticeStep::Line PracticeStep::currentLine() const
{
    return {m_context.cursor(), m_context.generation()};
}

/// What plays is a line of what is open; neither what comes before the first brake nor the end mark
/// is one.
bool PracticeStep::isLine() const
{
    const Cursor place = m_context.cursor();
    if (m_context.closing || m_context.openedMeanwhile || place.packet < 1 || place.clip < 1) {
        return false;
    }
    const PlaylistEntry& packet = m_context.currentPacket();
    return packet.HasBrakes ? m_context.areBrakesLoaded() && place.clip < endMarkOf(packet)
                            : place.clip <= packet.ClipCount;
}

BrakeSpan PracticeStep::span() const
{
    const double duration = m_context.operations.durationSeconds();
    const PlaylistEntry& packet = m_context.currentPacket();
    BrakeSpan span = packet.HasBrakes ? brakeSpan(packet, m_context.cursor().clip, duration)
                                      : BrakeSpan{0, duration};
    if (duration > 0) {
        span.end = std::min(span.end, duration); // an end mark may lie behind the clip's end
    }
    return span;
}

void PracticeStep::beginLine()
{
    if (m_line != currentLine()) {
        m_line = currentLine();
        m_rounds = 0;
        giveUp();
        applyToPlayer();
    }
}

void PracticeStep::applyToPlayer()
{
    const Practice now = practice();
    m_context.operations.SetSpeed(speedOfRound(now, m_rounds + 1));
    m_context.operations.SetMirrored(now.mirror);
    m_context.operations.SetEvenLoudness(now.even);
}

void PracticeStep::settingsChanged()
{
    applyToPlayer();
    const Practice now = practice();
    if (m_waiting && now.wait == Practice::kNoWait) {
        goOn();
    } else if (m_waiting && (now.wait != m_waitedBy.wait || now.seconds != m_waitedBy.seconds)) {
        startWait();
    }
}

AfterLine PracticeStep::decide()
{
    if (!isLine()) {
        return AfterLine::GoOn;
    }
    beginLine();
    ++m_rounds;
    const BrakeSpan line = span();
    return nextAfterLine(practice(), m_rounds, line.end - line.begin);
}

bool PracticeStep::keepsClip()
{
    m_atEnd = AfterLine::GoOn;
    resumeNext("practice at the end", [&] { m_atEnd = decide(); });
    return m_atEnd != AfterLine::GoOn;
}

bool PracticeStep::goesOnAfterClip() const
{
    const Practice now = practice();
    if (m_context.operations.Speed() != speedOfRound(now, 1)) {
        return false;
    }
    const BrakeSpan line = isLine() ? span() : BrakeSpan{};
    return !isLine() || nextAfterLine(now, m_rounds + 1, line.end - line.begin) == AfterLine::GoOn;
}

bool PracticeStep::clipEnded(GoOn goOn)
{
    return apply(std::exchange(m_atEnd, AfterLine::GoOn), std::move(goOn));
}

bool PracticeStep::brakeReached(GoOn goOn)
{
    return apply(decide(), std::move(goOn));
}

bool PracticeStep::apply(AfterLine decision, GoOn goOn)
{
    switch (decision) {
    case AfterLine::Again:
        playAgain();
        return true;
    case AfterLine::Wait:
        wait(std::move(goOn));
        return true;
    default:
        return false;
    }
}

void PracticeStep::playAgain()
{
    const Cursor place = m_context.cursor();
    m_context.log.again(place, m_rounds + 1);
    applyToPlayer();
    playFromStart();
    m_reports.again(m_rounds + 1);
}

void PracticeStep::playFromStart()
{
    const double start = span().begin;
    m_context.operations.ForgetEnd();
    const bool isAtStart =
        m_context.player().state == MediaControl::Stopped && m_context.operations.secondsNow() <= 0;
    if (start > 0 || !isAtStart) {
        m_context.operations.SetPlayerPosition(decimalText(start));
    }
    m_context.operations.PlayerRun();
}

void PracticeStep::wait(GoOn goOn)
{
    m_context.operations.HoldPlayer();
    m_context.log.waiting(m_context.cursor());
    m_goOn = std::move(goOn);
    m_waiting = true;
    startWait();
}

void PracticeStep::startWait()
{
    m_waitedBy = practice();
    const BrakeSpan line = span();
    const auto seconds =
        waitAfterLine(m_waitedBy, line.end - line.begin, speedOfRound(m_waitedBy, m_rounds));
    m_wait.stop();
    if (seconds) {
        m_wait.start(std::chrono::milliseconds(std::llround(*seconds * 1000)));
    }
    m_reports.waitBegan(seconds);
}

void PracticeStep::endWait()
{
    m_waiting = false;
    m_wait.stop();
    m_reports.waitOver();
}

void PracticeStep::giveUp()
{
    if (m_waiting) {
        m_goOn = nullptr;
        endWait();
    }
}

void PracticeStep::goOn()
{
    if (!m_waiting) {
        return;
    }
    const GoOn next = std::exchange(m_goOn, nullptr);
    endWait();
    if (nextAfterWait(practice()) == AfterLine::Again) {
        playAgain();
    } else {
        next();
    }
}

} // namespace orvanta
