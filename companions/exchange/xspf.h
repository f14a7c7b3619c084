// XSPF lists.
#pragma once

#include "companions/exchange/lesson.h"

#include <QByteArray>

namespace orvanta {

/// Reads tracks with their titles, and VLC's start-time and stop-time (marks). Addresses are left
/// out; nothing outside the bytes is read.
[[nodiscard]] ReadLesson readXspf(const QByteArray& bytes);

/// The lesson as a list, in UTF-8.
[[nodiscard]] QByteArray xspfText(const Lesson& lesson);

} // namespace orvanta
