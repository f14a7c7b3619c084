// WebVTT as chapters: the spans of a packet's marks.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// Reads the cues, without markup, notes, styles and settings. Lines that are no cue's are left
/// out.
[[nodiscard]] ReadLesson readWebVtt(QStringView text);

/// A packet of marks as cues. Blank lines within a text have no place in the format.
[[nodiscard]] QString webVttText(const LessonPacket& packet);

} // namespace orvanta
