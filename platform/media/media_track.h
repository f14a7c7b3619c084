// One track of the clip that is open, in the program's own words.
#pragma once

#include <QString>

namespace orvanta {

struct MediaTrack
{
    enum Kind
    {
        Sound,
        Subtitles,
    };

    Kind kind = Sound;
    int id = 0;            // among those of its kind, from 1
    QString language = {}; // as the file says it: "eng", "en", "pt-BR"; empty without one
    QString title = {};    // as the file says it, of an added file its name; empty without one
    bool chosen = false;
    bool added = false; // from a file beside the clip

    friend bool operator==(const MediaTrack&, const MediaTrack&) = default;
};

} // namespace orvanta
