#include "tests/support/scripted_media_control.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace orvanta {

void ScriptedMediaControl::completeOpening()
{
    if (!m_opening) {
        return;
    }
    m_opening = false;
    m_ready = true;
    m_tracks = clipTracks;
    Q_EMIT durationChange(duration);
    changeState(Stopped);
    Q_EMIT openComplete(pictureSize);
}

void ScriptedMediaControl::failOpening()
{
    if (!m_opening) {
        return;
    }
    m_opening = false;
    m_fileName.clear();
    Q_EMIT openFailed(QStringLiteral("scripted"));
}

void ScriptedMediaControl::playTo(double seconds)
{
    m_position = std::clamp(seconds, 0.0, duration);
    Q_EMIT position();
}

void ScriptedMediaControl::reachEnd()
{
    m_position = 0;
    changeState(Stopped);
    Q_EMIT positionChange(duration, 0);
    Q_EMIT position();
}

void ScriptedMediaControl::forceState(State state)
{
    changeState(state);
}

void ScriptedMediaControl::setFileName(const QString& path)
{
    calls.append(QStringLiteral("load ") + path);
    m_fileName = path;
    m_position = 0;
    m_ready = false;
    m_tracks.clear();
    m_opening = !path.isEmpty();
    const quint64 load = ++m_load;
    changeState(NotLoaded);
    if (!autoOpen || path.isEmpty()) {
        return;
    }
    QTimer::singleShot(0, this, [this, load, path] {
        if (load != m_load) {
            return;
        }
        if (refusedFiles.contains(path)) {
            failOpening();
        } else {
            completeOpening();
        }
    });
}

void ScriptedMediaControl::setCurrentPosition(double seconds)
{
    calls.append(QStringLiteral("seek %1").arg(seconds));
    jumpTo(seconds);
}

void ScriptedMediaControl::previewPosition(double seconds)
{
    calls.append(QStringLiteral("preview %1").arg(seconds));
    jumpTo(seconds);
}

double ScriptedMediaControl::Duration() const
{
    return m_ready ? duration : 0.0;
}

void ScriptedMediaControl::Run()
{
    calls.append(QStringLiteral("Run"));
    if (m_ready) {
        changeState(Running);
    }
}

void ScriptedMediaControl::Pause()
{
    calls.append(QStringLiteral("Pause"));
    if (m_ready) {
        changeState(Paused);
    }
}

void ScriptedMediaControl::Stop()
{
    calls.append(QStringLiteral("Stop"));
    if (m_ready) {
        const double old = std::exchange(m_position, 0.0);
        changeState(Stopped);
        reportJump(old);
    }
}

void ScriptedMediaControl::setVolume(int hundredthsOfDecibel)
{
    calls.append(QStringLiteral("volume %1").arg(hundredthsOfDecibel));
    m_volume = hundredthsOfDecibel;
}

void ScriptedMediaControl::setSpeed(double speed)
{
    if (std::exchange(m_speed, speed) != speed) {
        calls.append(QStringLiteral("speed %1").arg(speed));
    }
}

void ScriptedMediaControl::setMirrored(bool mirrored)
{
    if (std::exchange(m_mirrored, mirrored) != mirrored) {
        calls.append(mirrored ? QStringLiteral("mirrored") : QStringLiteral("not mirrored"));
    }
}

void ScriptedMediaControl::setEvenLoudness(bool even)
{
    if (std::exchange(m_even, even) != even) {
        calls.append(even ? QStringLiteral("even") : QStringLiteral("not even"));
    }
}

void ScriptedMediaControl::chooseSound(int id)
{
    calls.append(QStringLiteral("sound %1").arg(id));
    mark(MediaTrack::Sound, id);
}

void ScriptedMediaControl::chooseSubtitles(int id)
{
    calls.append(QStringLiteral("subtitles %1").arg(id));
    mark(MediaTrack::Subtitles, id);
}

void ScriptedMediaControl::addSubtitleFile(const QString& path, const QString& language)
{
    calls.append(QStringLiteral("subtitle file ") + path);
    const auto number = int(std::ranges::count(m_tracks, MediaTrack::Subtitles, &MediaTrack::kind));
    m_tracks.push_back({.kind = MediaTrack::Subtitles,
                        .id = number + 1,
                        .language = language,
                        .title = path.section(QLatin1Char('/'), -1),
                        .added = true});
    mark(MediaTrack::Subtitles, number + 1);
}

void ScriptedMediaControl::mark(MediaTrack::Kind kind, int id)
{
    for (MediaTrack& track : m_tracks) {
        track.chosen = track.kind == kind ? track.id == id : track.chosen;
    }
    Q_EMIT tracksChanged();
}

void ScriptedMediaControl::jumpTo(double seconds)
{
    if (failSeeks || (!m_ready && !m_opening)) {
        return;
    }
    if (m_opening) { // goes there once it is open
        m_position = std::clamp(seconds, 0.0, duration);
        Q_EMIT position();
        return;
    }
    const double old = std::exchange(m_position, std::clamp(seconds, 0.0, duration));
    reportJump(old);
}

// Like the real control: a jump of the user's never looks like the end.
void ScriptedMediaControl::reportJump(double oldSeconds)
{
    if (!looksLikeEnd(oldSeconds, m_position, duration)) {
        Q_EMIT positionChange(oldSeconds, m_position);
    }
    Q_EMIT position();
}

void ScriptedMediaControl::changeState(State state)
{
    const State old = std::exchange(m_state, state);
    if (old != state) {
        Q_EMIT stateChange(old, state);
    }
}

} // namespace orvanta
