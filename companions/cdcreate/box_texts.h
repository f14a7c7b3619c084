// What is said about a box, in either language.
#pragma once

#include "companions/cdcreate/box_plan.h"
#include "companions/cdcreate/box_speed.h"
#include "companions/cdcreate/box_work.h"
#include "model/texts.h"

#include <QString>

namespace orvanta {

/// "1.5 MB", in powers of 1000.
[[nodiscard]] QString sizeText(qint64 bytes, TextLanguage language);

/// "Writing: 12.5 MB of 40 MB, 55 MB/s, 0:03 left".
[[nodiscard]] QString progressText(const BoxState& state, const BoxSpeed& speed,
                                   TextLanguage language);

/// Why there is no box, in one sentence.
[[nodiscard]] QString failureText(const BoxFailure& failure, TextLanguage language);

/// "clip 3: missing: C:\Clips\a.avi", as "orvanta --check" says it.
[[nodiscard]] QString missingText(const MissingPart& part, TextLanguage language);

} // namespace orvanta
