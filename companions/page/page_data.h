// The data of a lesson's page: what its script reads.
#pragma once

#include "companions/page/lesson_page.h"

#include <QJsonObject>

namespace orvanta {

/// The lesson, the texts of the page in both languages, its keys. "id" is the same for the same
/// content: under it a browser remembers where somebody stopped.
[[nodiscard]] QJsonObject pageData(const PageLesson& lesson);

/// A path relative to the page as an address: each name encoded, the first one never taken for a
/// scheme. Empty for an empty path.
[[nodiscard]] QString pageAddress(const QString& file);

} // namespace orvanta
