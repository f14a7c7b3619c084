// Lets the playback tick rest while nothing could happen in it.
#pragma once

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace orvanta {

/// What a tick serves changes by an event of the program or in the settings file, whose folder is
/// watched. While nothing runs and no event comes, ticks are ten times as rare (they go on, for a
/// file system that does not tell of its changes); the first event is followed by one at once, and
/// by others in the rhythm. Where the folder cannot be watched, no tick rests. Interface thread
/// only.
class TickRest : public QObject
{
public:
    /// tick: its timer, with its interval. It outlives this. settingsFile: where launches queue.
    /// settled: called once when what ran has stopped for ten ticks of time, rests or not (the mark
    /// of a text box that blinks is an event, too).
    TickRest(QTimer& tick, const QString& settingsFile, std::function<void()> settled);

    /// After each tick of the timer. isQuiet: nothing runs or opens.
    void ticked(bool isQuiet);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void rest();
    void settle(bool isQuiet);
    void goOn(std::chrono::milliseconds interval);

    QTimer& m_tick;
    std::chrono::milliseconds m_rhythm;
    QFileSystemWatcher m_settings;
    int m_quietTicks = 0;
    bool m_isResting = false;
    std::function<void()> m_settled;
    bool m_hasRun = false; // since it was settled last
    QElapsedTimer m_stopped;
};

} // namespace orvanta
