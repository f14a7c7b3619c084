// How long a clip is, and its chapters as they stand in it.
#pragma once

#include <QString>

#include <vector>

namespace orvanta {

/// Seconds by the player's clock.
struct ClipChapter
{
    double start = 0;
    double end = 0;
    QString title; // as it stands there, line breaks among it

    friend bool operator==(const ClipChapter&, const ClipChapter&) = default;
};

struct ClipFacts
{
    bool isMedia = false;
    double seconds = 0;                // 0: the clip does not say
    double start = 0;                  // the player's second 0 by the clip's own clock, seconds
    std::vector<ClipChapter> chapters; // by their start
};

/// Looks at the beginning of an absolute path's regular file, or at what its kind asks for, and
/// opens nothing else. What cannot be opened is logged and is no media. Any thread.
[[nodiscard]] ClipFacts readClipFacts(const QString& path);

} // namespace orvanta
