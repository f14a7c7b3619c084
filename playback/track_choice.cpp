#include "playback/track_choice.h"

#include "core/folder_contents.h"
#include "model/languages.h"
#include "platform/media/subtitle_file.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString codeOr(const QString& asWritten)
{
    const QString code = languageCode(asWritten);
    return code.isEmpty() ? kNoLanguage.toString() : code;
}

QString languageOf(const MediaTrack& track)
{
    return codeOr(track.language);
}

static int trackIn(const std::vector<MediaTrack>& tracks, MediaTrack::Kind kind,
                   const QString& language)
{
    const MediaTrack* found = nullptr;
    for (const MediaTrack& track : tracks) {
        const bool fits = track.kind == kind && languageOf(track) == language;
        if (fits && (found == nullptr || (track.chosen && !found->chosen))) {
            found = &track;
        }
    }
    return found != nullptr ? found->id : 0;
}

TrackChoice chooseTracks(const std::vector<MediaTrack>& tracks,
                         const std::vector<SubtitleFile>& files, const TrackWish& wish)
{
    TrackChoice choice;
    if (!wish.sound.isEmpty()) {
        choice.sound = trackIn(tracks, MediaTrack::Sound, wish.sound);
    }
    if (wish.subtitles.isEmpty()) {
        return choice;
    }
    choice.subtitles = trackIn(tracks, MediaTrack::Subtitles, wish.subtitles);
    const auto file = std::ranges::find(files, wish.subtitles, &SubtitleFile::language);
    if (choice.subtitles == 0 && file != files.end()) {
        choice.file = file->path;
    }
    return choice;
}

/// The language between a clip's name and the ending; nothing for a file of another clip.
static std::optional<QString> languageBetween(const QString& clip, const QString& file)
{
    if (file == clip) {
        return kNoLanguage.toString();
    }
    const QString code =
        file.startsWith(clip + u'.') ? languageCode(file.mid(clip.size() + 1)) : QString();
    return code.isEmpty() ? std::nullopt : std::optional(code);
}

std::vector<SubtitleFile> subtitleFilesBeside(const QString& clip)
{
    const QFileInfo info(clip);
    const QString folder = info.path();
    std::vector<SubtitleFile> files;
    for (const QString& name : namesOfFiles(folder, u"*.srt;*.vtt;*.ass"_s)) {
        const QString path = folder + u'/' + name;
        const auto language =
            languageBetween(info.completeBaseName(), QFileInfo(name).completeBaseName());
        if (language && isSubtitleFile(path)) {
            files.push_back({.path = path, .language = *language});
        }
    }
    return files;
}

} // namespace orvanta
