// Practising: a line again, slower or after a wait, before the lesson goes on as the options say.
#pragma once

#include "playback/brakes.h"
#include "playback/engine_context.h"
#include "playback/practice_rule.h"

#include <QTimer>

#include <functional>

namespace orvanta {

/// What the step tells to whoever shows it.
struct PracticeReports
{
    /// A line begins again; its rounds count from 1.
    std::function<void(int round)> again;
    /// A wait has begun, real seconds; none: until a key.
    std::function<void(std::optional<double> seconds)> waitBegan;
    std::function<void()> waitOver;
    /// The time of a wait has come to its end: goOn is to be called, as an entry into the engine.
    std::function<void()> waitRanOut;
};

/// Asked at the end of each line. As long as nothing is practised it leaves all as it is.
class PracticeStep
{
public:
    using GoOn = std::function<void()>;

    PracticeStep(EngineContext& context, PracticeReports reports);

    /// A clip comes to its end: whether it stays loaded, to be played again or waited for.
    [[nodiscard]] bool keepsClip();
    /// The clip that plays will come to its end: whether what follows is the next line, at once and
    /// as fast.
    [[nodiscard]] bool goesOnAfterClip() const;
    /// The clip has come to its end, which keepsClip has decided about. False: nothing to practise.
    /// Otherwise goOn is called after the wait, unless something else begins before.
    [[nodiscard]] bool clipEnded(GoOn goOn);
    /// The next brake is reached. As above.
    [[nodiscard]] bool brakeReached(GoOn goOn);

    /// Another line may be current: it has its rounds still before it. Ends a wait.
    void beginLine();
    /// The settings have changed: the line that plays goes on by them.
    void settingsChanged();

    [[nodiscard]] bool isWaiting() const { return m_waiting; }
    /// It waits, and the line is not played again after it.
    [[nodiscard]] bool goesOnAfterWait() const
    {
        return m_waiting && nextAfterWait(practice()) == AfterLine::GoOn;
    }
    /// Ends the wait as its time would.
    void goOn();
    /// Ends the wait; nothing follows.
    void giveUp();

    /// The current line's, from 1.
    [[nodiscard]] int round() const { return m_rounds + 1; }
    /// The current line from its start.
    void playFromStart();

private:
    struct Line
    {
        Cursor place;
        quint64 generation = 0;
        friend bool operator==(const Line&, const Line&) = default;
    };

    [[nodiscard]] bool isLine() const;
    [[nodiscard]] BrakeSpan span() const;
    [[nodiscard]] AfterLine decide();
    bool apply(AfterLine decision, GoOn goOn);
    void playAgain();
    void wait(GoOn goOn);
    void startWait();
    void endWait();
    void applyToPlayer();
    [[nodiscard]] Line currentLine() const;
    [[nodiscard]] Practice practice() const { return m_context.module.settings().practice(); }

    EngineContext& m_context;
    PracticeReports m_reports;
    Line m_line;
    int m_rounds = 0; // of the line, played to the end
    AfterLine m_atEnd = AfterLine::GoOn;
    bool m_waiting = false;
    Practice m_waitedBy; // the practice by which the wait was begun
    GoOn m_goOn;
    QTimer m_wait;
};

} // namespace orvanta
