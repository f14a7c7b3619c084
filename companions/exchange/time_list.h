// Lists of times as people write them below their videos.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// "0:00 Title", "[1:02:03.5] - Title", "2. 0:30 – 1:00 Title", "Title 0:30": a time with a colon
/// at the beginning or the end of a line. Lines without one are left out.
[[nodiscard]] ReadLesson readTimeList(QStringView text);

} // namespace orvanta
