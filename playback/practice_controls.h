// Practising as a person steers it: values, keys, waiting.
#pragma once

#include "playback/practice_step.h"

#include <QObject>

namespace orvanta {

/// What is changed here is stored at once and holds for the line that plays. Interface thread only.
class PracticeControls : public QObject
{
    Q_OBJECT

public:
    /// enter: runs an action as an entry into the engine.
    PracticeControls(EngineContext& context,
                     std::function<void(const std::function<void()>&)> enter);

    /// From the settings, each time.
    [[nodiscard]] Practice values() const { return m_context.module.settings().practice(); }
    void set(const Practice& practice);

    /// To the next step; 25 to 200 percent.
    void slower();
    void faster();
    void normalSpeed();
    /// Endless repeats of each line; off again, as many times as before.
    void toggleRepeat();
    /// Off, until a key, as long as the line lasted.
    void nextWait();

    /// The round that the current line is in, from 1, and of how many; empty when it is the only
    /// one.
    [[nodiscard]] QString roundText() const;
    [[nodiscard]] bool isWaiting() const { return m_step.isWaiting(); }
    /// Goes on as after the wait; nothing without one.
    void goOn();
    void giveUpWait() { m_step.giveUp(); }

    /// For the engine.
    [[nodiscard]] PracticeStep& step() { return m_step; }
    /// The player was set running, or stopped, from somewhere.
    void playerIs(MediaControl::State state);

Q_SIGNALS:
    void changed();
    /// What has changed, or begins, in a few words: "0.8 ×", "Repeat 2 of 5".
    void said(const QString& text);
    /// The current line begins its round-th round, counted from 1.
    void againBegan(int round);
    /// seconds: how long it will last, real time; 0: until a key.
    void waitBegan(double seconds);
    void waitOver();

private:
    PracticeReports reports();
    void change(int Practice::*value, int to);
    [[nodiscard]] QString changesFrom(const Practice& before, const Practice& now) const;
    [[nodiscard]] TextLanguage language() const;

    EngineContext& m_context;
    std::function<void(const std::function<void()>&)> m_enter;
    PracticeStep m_step;
    int m_timesBefore = 1; // before endless repeats
};

} // namespace orvanta
