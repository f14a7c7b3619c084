// M3U and M3U8 lists.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// Reads #EXTINF titles, #PLAYLIST, #EXTGRP (a packet each) and VLC's start-time and stop-time
/// (marks). Addresses are left out.
[[nodiscard]] ReadLesson readM3u(QStringView text);

/// The lesson as a list for UTF-8. Titles are on one line: that is all that the format holds.
[[nodiscard]] QString m3uText(const Lesson& lesson);

} // namespace orvanta
