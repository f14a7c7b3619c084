// Cue sheets.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// A file with several tracks becomes a packet of marks, one at each INDEX 01; files with one track
/// each become one packet of clips. The end of the last track is the end of its file.
[[nodiscard]] ReadLesson readCue(QStringView text);

} // namespace orvanta
