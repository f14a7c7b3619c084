// Which sound and which subtitles a clip plays with, by the languages that a person has chosen.
#pragma once

#include "model/settings.h"
#include "platform/media/media_track.h"

#include <QString>

#include <vector>

namespace orvanta {

/// A subtitle file beside a clip.
struct SubtitleFile
{
    QString path;
    QString language = {}; // a code; kNoLanguage without one

    friend bool operator==(const SubtitleFile&, const SubtitleFile&) = default;
};

struct TrackChoice
{
    int sound = 0;     // a track's number; 0: as the clip says
    int subtitles = 0; // a track's number; 0: none of the clip's own
    QString file = {}; // the file to add; empty: none

    friend bool operator==(const TrackChoice&, const TrackChoice&) = default;
};

/// Of several in one language the one that the clip has chosen itself, else the first; a file only
/// where the clip has no such subtitles of its own.
[[nodiscard]] TrackChoice chooseTracks(const std::vector<MediaTrack>& tracks,
                                       const std::vector<SubtitleFile>& files,
                                       const TrackWish& wish);

/// The language of a track by its code; kNoLanguage without one.
[[nodiscard]] QString languageOf(const MediaTrack& track);

/// The files that belong to a clip by name: "clip.srt" and "clip.en.srt" to "clip.mp4". Regular
/// ones (srt, vtt, ass) of a size that is read; none is opened.
[[nodiscard]] std::vector<SubtitleFile> subtitleFilesBeside(const QString& clip);

} // namespace orvanta
