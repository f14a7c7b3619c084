#include "playback/track_controls.h"

#include "core/error_boundary.h"
#include "model/languages.h"

#include <QFileInfo>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString titleOf(const SubtitleFile& file)
{
    return QFileInfo(file.path).fileName();
}

TrackControls::TrackControls(const Module1& module, MediaControl& control)
    : m_module(module),
      m_control(control)
{
    connect(&control, &MediaControl::openComplete, this,
            [this] { resumeNext("tracks of a clip", [this] { clipOpened(); }); });
    connect(&control, &MediaControl::tracksChanged, this, &TrackControls::changed);
}

void TrackControls::clipOpened()
{
    m_files = subtitleFilesBeside(m_control.FileName());
    const TrackWish wish = m_module.settings().trackWish();
    const TrackChoice choice = chooseTracks(m_control.tracks(), m_files, wish);
    if (choice.sound != 0) {
        m_control.chooseSound(choice.sound);
    }
    if (choice.subtitles != 0) {
        m_control.chooseSubtitles(choice.subtitles);
    } else if (!choice.file.isEmpty()) {
        add({.path = choice.file, .language = wish.subtitles});
    }
    Q_EMIT changed();
}

void TrackControls::add(const SubtitleFile& file)
{
    m_control.addSubtitleFile(file.path, file.language == kNoLanguage ? QString() : file.language);
}

TextLanguage TrackControls::language() const
{
    return textLanguage(m_module.Language.value(), TextLanguage::Russian);
}

QString TrackControls::textOf(const MediaTrack& track) const
{
    QStringList parts;
    if (const QString code = languageOf(track); code != kNoLanguage) {
        parts += languageName(code, language());
    }
    if (!track.title.isEmpty()) {
        parts += track.title;
    }
    return parts.isEmpty() ? interfaceText(u"Tracks", u"number", language()).arg(track.id)
                           : parts.join(u" — "_s);
}

TrackControls::Tracks TrackControls::tracksOf(MediaTrack::Kind kind) const
{
    Tracks tracks = m_control.tracks();
    std::erase_if(tracks, [&](const MediaTrack& track) { return track.kind != kind; });
    return tracks;
}

std::vector<SubtitleFile> TrackControls::filesToAdd() const
{
    const Tracks tracks = tracksOf(MediaTrack::Subtitles);
    std::vector<SubtitleFile> files = m_control.isReady() ? m_files : std::vector<SubtitleFile>();
    std::erase_if(files, [&](const SubtitleFile& file) {
        return std::ranges::any_of(tracks, [&](const MediaTrack& track) {
            return track.added && track.title == titleOf(file);
        });
    });
    return files;
}

std::vector<TrackEntry> TrackControls::sounds() const
{
    std::vector<TrackEntry> entries;
    for (const MediaTrack& track : tracksOf(MediaTrack::Sound)) {
        entries.push_back({.text = textOf(track), .chosen = track.chosen});
    }
    return entries;
}

std::vector<TrackEntry> TrackControls::subtitles() const
{
    const Tracks tracks = tracksOf(MediaTrack::Subtitles);
    const std::vector<SubtitleFile> files = filesToAdd();
    if (tracks.empty() && files.empty()) {
        return {};
    }
    std::vector<TrackEntry> entries = {
        {.text = interfaceText(u"Tracks", u"off", language()),
         .chosen = std::ranges::none_of(tracks, &MediaTrack::chosen)}};
    for (const MediaTrack& track : tracks) {
        entries.push_back({.text = textOf(track), .chosen = track.chosen});
    }
    for (const SubtitleFile& file : files) {
        const MediaTrack added = {
            .kind = MediaTrack::Subtitles, .language = file.language, .title = titleOf(file)};
        entries.push_back({.text = textOf(added)});
    }
    return entries;
}

void TrackControls::keep(QString TrackWish::*which, const QString& language)
{
    TrackWish wish = m_module.settings().trackWish();
    wish.*which = language;
    m_module.settings().setTrackWish(wish);
}

void TrackControls::chooseSound(std::size_t entry)
{
    const Tracks tracks = tracksOf(MediaTrack::Sound);
    if (entry < tracks.size()) {
        keep(&TrackWish::sound, languageOf(tracks[entry]));
        m_control.chooseSound(tracks[entry].id);
    }
}

void TrackControls::chooseSubtitles(std::size_t entry)
{
    const Tracks tracks = tracksOf(MediaTrack::Subtitles);
    const std::vector<SubtitleFile> files = filesToAdd();
    if (entry == 0) {
        keep(&TrackWish::subtitles, QString());
        m_control.chooseSubtitles(0);
    } else if (entry <= tracks.size()) {
        keep(&TrackWish::subtitles, languageOf(tracks[entry - 1]));
        m_control.chooseSubtitles(tracks[entry - 1].id);
    } else if (entry <= tracks.size() + files.size()) {
        const SubtitleFile& file = files[entry - tracks.size() - 1];
        keep(&TrackWish::subtitles, file.language);
        add(file);
    }
}

} // namespace orvanta
