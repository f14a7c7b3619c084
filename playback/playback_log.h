// The lines by which a person or a test follows what plays.
#pragma once

#include "playback/advance.h"

#include <QString>

namespace orvanta {

class PlaybackLog
{
public:
    void start(Cursor place, const QString& text);
    void ended(Cursor place) const;
    /// A line begins its round-th round, from 1.
    void again(Cursor place, int round);
    /// A line has been played, and the lesson waits.
    void waiting(Cursor place) const;
    /// Said once for each time that something ran.
    void stopped();
    /// Something runs (again), or was about to.
    void running() { m_saidStopped = false; }

private:
    bool m_saidStopped = false;
};

} // namespace orvanta
