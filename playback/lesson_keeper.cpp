#include "playback/lesson_keeper.h"

#include "playback/lesson_controls.h"
#include "playback/playback_engine.h"

namespace orvanta {

constexpr int kPauseMilliseconds = 2000;
constexpr int kStopMilliseconds = 500; // between two clips the player stands for a moment, too

LessonKeeper::LessonKeeper(Module1& module, PlaybackEngine& engine, MediaControl& control)
    : m_module(module),
      m_engine(engine)
{
    m_running.setInterval(module.settings().recentSeconds() * 1000);
    m_resting.setSingleShot(true);
    connect(&m_running, &QTimer::timeout, this, &LessonKeeper::keep);
    connect(&m_resting, &QTimer::timeout, this, [this] {
        m_running.stop();
        keep();
    });
    connect(&control, &MediaControl::stateChange, this,
            [this](auto /*from*/, MediaControl::State to) { playerIs(to); });
    connect(&engine, &PlaybackEngine::cursorChanged, this, &LessonKeeper::cursorMoved);
    connect(&engine.lesson(), &LessonControls::left, this, &LessonKeeper::leave);
    connect(&engine.lesson(), &LessonControls::over, this, &LessonKeeper::finish);
    if (const RecentLessons recent(module); !recent.areKept()) {
        recent.forget();
    }
}

// The timer goes on from clip to clip, or clips shorter than it would never be kept.
void LessonKeeper::playerIs(MediaControl::State state)
{
    if (state != MediaControl::Running) {
        m_resting.start(state == MediaControl::Paused ? kPauseMilliseconds : kStopMilliseconds);
        return;
    }
    m_resting.stop();
    if (m_engine.lesson().place()) {
        m_begun = m_module.playlist.revision;
        m_over = false;
    }
    if (!m_running.isActive()) {
        m_running.start();
    }
}

bool LessonKeeper::hasBegun() const
{
    return !m_module.playlist.Document.isEmpty() && m_begun == m_module.playlist.revision;
}

void LessonKeeper::note()
{
    if (!hasBegun() || m_over) {
        return;
    }
    if (const auto place = m_engine.lesson().place()) {
        m_noted = recentLesson(m_module.playlist, *place);
        m_notedRevision = m_module.playlist.revision;
    }
}

void LessonKeeper::store()
{
    if (m_noted) {
        m_noted->used = QDateTime::currentDateTime();
        RecentLessons(m_module).keep(*m_noted);
    }
}

void LessonKeeper::keep()
{
    note();
    store();
}

void LessonKeeper::leave()
{
    note();
    if (m_engine.isClosing()) {
        store();
    }
}

void LessonKeeper::finish()
{
    if (!hasBegun()) {
        return;
    }
    m_over = true;
    m_noted = recentLesson(m_module.playlist, {1, 1, 0});
    m_noted->line = m_noted->lines;
    m_noted->over = true;
    m_notedRevision = m_module.playlist.revision;
    store();
}

/// What was left for another is kept as it was then.
void LessonKeeper::cursorMoved()
{
    if (m_notedRevision != m_module.playlist.revision) {
        store();
        m_noted.reset();
    }
}

} // namespace orvanta
