// Keeps where the lesson is, so that it can be gone on with after the program's end, even a sudden
// one.
#pragma once

#include "model/recent_lessons.h"
#include "platform/media/media_control.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace orvanta {

class PlaybackEngine;

/// Writes on a stop, a longer pause, another opening, the program's end, and every now and then
/// while a lesson runs: Settings::recentSeconds. Never when nothing has changed. Interface thread
/// only.
class LessonKeeper : public QObject
{
    Q_OBJECT

public:
    /// All of them outlive it. Where the settings say that nothing is kept, what was kept goes.
    LessonKeeper(Module1& module, PlaybackEngine& engine, MediaControl& control);

private:
    void playerIs(MediaControl::State state);
    void leave();
    void finish();
    void cursorMoved();
    void keep();
    [[nodiscard]] bool hasBegun() const;
    void note();
    void store();

    Module1& m_module;
    PlaybackEngine& m_engine;
    QTimer m_running; // while it plays
    QTimer m_resting; // one shot: since it no longer plays
    std::optional<RecentLesson> m_noted;
    int m_notedRevision = -1; // of the playlist, with m_noted
    int m_begun = -1;         // the playlist's revision in which something has played
    bool m_over = false;      // it was played to its end, and nothing has begun since
};

} // namespace orvanta
