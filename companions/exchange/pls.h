// PLS lists.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

/// Reads FileN and TitleN, by their numbers. Addresses are left out.
[[nodiscard]] ReadLesson readPls(QStringView text);

} // namespace orvanta
