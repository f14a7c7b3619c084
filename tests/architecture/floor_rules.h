// The floors of the house and who may include whom: pure rules over paths and include lines.
#pragma once

#include "tests/architecture/source_files.h"

#include <QString>

namespace orvanta::test {

/// Why this file (a path below the project's root) must not have this include line; null when it
/// may. Files outside the floors (tests, measurements, samples) may include what they like.
[[nodiscard]] QString complaintAbout(const QString& file, const Include& include);

} // namespace orvanta::test
