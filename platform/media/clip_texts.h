// What a clip says about its own parts: chapters and subtitles.
#pragma once

#include "platform/media/subtitle_lines.h"
#include "platform/media/suggested_mark.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace orvanta {

class CodePage;

struct SubtitleTrack
{
    QString title;    // of a file beside the clip: its name; may be empty
    QString language; // as the clip says it ("rus"); may be empty
    std::vector<SubtitleLine> lines;
};

struct ClipTexts
{
    std::vector<SuggestedMark> chapters; // where each starts, with its title
    std::vector<SubtitleTrack>
        subtitles; // the clip's own, then those of files beside it; none empty
};

/// Reads the clip, and the files of subtitles of the same name that lie beside it: nothing else.
/// Takes as long as the disk needs for the whole clip where subtitles are strewn over it. page: of
/// subtitles in a file that are neither in UTF-8 or UTF-16 nor look Cyrillic. stopped: asked often.
/// What cannot be read is logged and gives nothing.
[[nodiscard]] ClipTexts readClipTexts(const QString& path,
                                      const std::shared_ptr<const CodePage>& page,
                                      const std::function<bool()>& stopped);

/// The lines of one file of subtitles, an absolute path, in the same manner: nothing for what does
/// not begin as subtitles do.
[[nodiscard]] std::vector<SubtitleTrack>
readSubtitleFile(const QString& file, const std::shared_ptr<const CodePage>& page,
                 const std::function<bool()>& stopped);

} // namespace orvanta
