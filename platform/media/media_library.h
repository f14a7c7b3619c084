// Which player library is at work; for people, not for decisions.
#pragma once

#include <QString>

namespace orvanta {

struct MediaLibraryVersions
{
    QString player; // "mpv 0.35.1"
    QString codecs; // of FFmpeg, "5.1.6"
};

/// Asks the library that is loaded now. Takes some milliseconds. Empty texts when it cannot say.
[[nodiscard]] MediaLibraryVersions mediaLibraryVersions();

} // namespace orvanta
