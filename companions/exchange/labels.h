// Labels as Audacity writes them.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// "start TAB end TAB text" a line, seconds. Lines that begin with a backslash say which
/// frequencies the label before them is about, and mean nothing here. When the last label is a
/// region, its end is the end mark.
[[nodiscard]] ReadLesson readLabels(QStringView text);

} // namespace orvanta
