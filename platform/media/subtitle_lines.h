// Lines of subtitles as marks.
#pragma once

#include "platform/media/suggested_mark.h"

#include <vector>

namespace orvanta {

/// Seconds; the text is one line without markup.
struct SubtitleLine
{
    double start = 0;
    double end = 0;
    QString text;

    friend bool operator==(const SubtitleLine&, const SubtitleLine&) = default;
};

/// The text of an event as FFmpeg's decoders give it ("0,0,Default,,0,0,0,,{\i1}Good\Nday"), on one
/// line, without markup and drawings. Empty for what is no event.
[[nodiscard]] QString textOfEvent(const QString& event);

/// By their start, without what is said twice at once, as layers do.
[[nodiscard]] std::vector<SubtitleLine> orderedLines(std::vector<SubtitleLine> lines);

/// Joins lines, in order, until one ends a sentence or more than one and a half seconds pass.
[[nodiscard]] std::vector<SubtitleLine> joinedToSentences(const std::vector<SubtitleLine>& lines);

/// One mark where each line starts.
[[nodiscard]] std::vector<SuggestedMark> marksOfLines(const std::vector<SubtitleLine>& lines);

} // namespace orvanta
