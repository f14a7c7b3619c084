// How a lesson that was left is spoken of: pure rules.
#pragma once

#include "model/recent_lessons.h"
#include "model/texts.h"

#include <QDate>

namespace orvanta {

/// "today", "yesterday", "14 November", of another year "14 November 2025"; empty for no day.
[[nodiscard]] QString dayText(QDate day, QDate today, TextLanguage language);

/// "3 of 8, yesterday" or "finished, 14 November".
[[nodiscard]] QString placeText(const RecentLesson& lesson, QDate today, TextLanguage language);

/// What is read out: "breathing, samples, 3 of 8, yesterday", of a lesson that is gone
/// "breathing, samples, not found".
[[nodiscard]] QString spokenText(const RecentLesson& lesson, bool isThere, QDate today,
                                 TextLanguage language);

} // namespace orvanta
