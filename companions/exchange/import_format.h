// Which kind of file another program has written.
#pragma once

#include <QByteArray>
#include <QString>

namespace orvanta {

enum class ImportFormat
{
    M3u,
    Pls,
    Xspf,
    Cue,
    WebVtt,
    Subtitles, // SRT and ASS
    FfMetadata,
    MatroskaChapters,
    Labels,
    TimeList,
    Media, // a clip with chapters
};

/// By what the file begins with, else by its name's ending; what says neither is media. bytes: the
/// beginning of the file, in any encoding.
[[nodiscard]] ImportFormat importFormatOf(const QString& name, const QByteArray& bytes);

} // namespace orvanta
