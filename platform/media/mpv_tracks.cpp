// Sound tracks, subtitles, a cover: which there are, and which are chosen.
#include "core/log.h"
#include "platform/media/mpv_nodes.h"
#include "platform/media/mpv_player.h"
#include "platform/media/subtitle_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

static MediaTrack trackOf(const mpv_node& map)
{
    return {.kind = textOf(map, "type") == u"sub" ? MediaTrack::Subtitles : MediaTrack::Sound,
            .id = static_cast<int>(numberOf(map, "id")),
            .language = textOf(map, "lang"),
            .title = textOf(map, "title"),
            .chosen = isSet(map, "selected"),
            .added = isSet(map, "external")};
}

void MpvPlayer::takeTracks(const mpv_node& list)
{
    m_tracks.clear();
    m_hasCover = false;
    for (int i = 0; list.format == MPV_FORMAT_NODE_ARRAY && i < list.u.list->num; ++i) {
        const mpv_node& track = list.u.list->values[i];
        if (textOf(track, "type") != u"video") {
            m_tracks.push_back(trackOf(track));
        } else {
            m_hasCover = m_hasCover || isSet(track, "albumart");
            m_pictureTrack =
                isSet(track, "selected") ? static_cast<int>(numberOf(track, "id")) : m_pictureTrack;
        }
    }
    if (m_phase == Ready) {
        Q_EMIT tracksChanged();
    }
}

/// What was chosen would hold for the next file too, by its number there.
void MpvPlayer::forgetTracks()
{
    m_tracks.clear();
    m_added.copy.close();
    m_hasCover = false;
    m_pictureTrack = 0;
    m_cover.cancel();
    if (std::exchange(m_tracksTouched, false)) {
        m_mpv->set("aid", QByteArray("auto"));
        m_mpv->set("sid", QByteArray("no"));
    }
}

bool MpvPlayer::hasTrack(MediaTrack::Kind kind, int id) const
{
    return std::ranges::any_of(
        m_tracks, [&](const MediaTrack& track) { return track.kind == kind && track.id == id; });
}

void MpvPlayer::chooseSound(int id)
{
    if (hasTrack(MediaTrack::Sound, id)) {
        dropNext();
        m_mpv->set("aid", QByteArray::number(id));
        if (m_state != Running) {
            readAgain(); // or the new sound may never begin, and with it the clip
        }
        markChosen(MediaTrack::Sound, id);
    }
}

void MpvPlayer::chooseSubtitles(int id)
{
    if (id == 0 || hasTrack(MediaTrack::Subtitles, id)) {
        dropNext();
        m_added.copy.close();
        m_mpv->set("sid", id == 0 ? QByteArray("no") : QByteArray::number(id));
        if (id != 0) {
            showAtRest();
        }
        markChosen(MediaTrack::Subtitles, id);
    }
}

/// A clip at rest has gone past what it should show, and reads it again from its place; one that
/// begins to run in this turn comes to it by itself.
void MpvPlayer::showAtRest()
{
    QTimer::singleShot(0, this, [this, load = m_load] {
        if (load == m_load && m_state != Running) {
            readAgain();
        }
    });
}

/// From the place at which the clip rests.
void MpvPlayer::readAgain()
{
    if (m_phase == Ready && !m_reloading && !m_seek.isUnderWay()) {
        const bool atStart = m_atStart;
        goTo(CurrentPosition(), MpvSeek::Exact);
        m_atStart = atStart;
    }
}

void MpvPlayer::markChosen(MediaTrack::Kind kind, int id)
{
    m_tracksTouched = true;
    for (MediaTrack& track : m_tracks) {
        track.chosen = track.kind == kind ? track.id == id : track.chosen;
    }
    Q_EMIT tracksChanged();
}

void MpvPlayer::addSubtitleFile(const QString& path, const QString& language)
{
    if (m_phase != Ready) {
        return;
    }
    dropNext();
    m_added = {copyOfSubtitles(path), QFile::encodeName(QFileInfo(path).fileName()),
               language.toUtf8()};
    m_tracksTouched = true;
    if (!m_reloading) { // which ends with them
        loadSubtitles();
    }
}

/// The library opens the copy by a name that means nothing to it.
void MpvPlayer::loadSubtitles()
{
    if (m_added.copy.isOpen()) {
        const QByteArray copy = "/proc/self/fd/" + QByteArray::number(m_added.copy.number());
        m_mpv->command({"sub-add", copy, "select", m_added.name, m_added.language},
                       idOf(AddSubtitles, m_load));
    }
}

/// error: of the library; negative when it cannot use them.
void MpvPlayer::subtitlesAdded(int error)
{
    if (error < 0) {
        qCInfo(logErrors, "no subtitles in %s: %s", m_added.name.constData(),
               mpv_error_string(error));
    }
    m_mpv->ask("track-list", MPV_FORMAT_NODE, idOf(NewTracks, m_load));
    showAtRest();
}

/// The library counts whole percents from the top, and leaves its usual margin above what is free.
void MpvPlayer::raiseSubtitles(double part)
{
    const int raised = static_cast<int>(std::ceil(std::clamp(part, 0.0, 1.0) * 100));
    if (m_raised != raised) {
        m_raised = raised;
        m_mpv->set("sub-pos", QByteArray::number(100 - raised));
        // Of a clip that is paused in this moment the library may draw nothing more by itself. The
        // answer comes when the place has changed.
        m_mpv->ask("sub-pos", MPV_FORMAT_INT64, idOf(SubtitlesMoved, m_load));
    }
}

bool MpvPlayer::readCover()
{
    const bool hasCover = m_phase == Ready && m_hasCover && m_pictureSize.isEmpty();
    if (hasCover) {
        m_cover.read(m_fileName);
    }
    return hasCover && m_cover.isReading();
}

} // namespace orvanta
