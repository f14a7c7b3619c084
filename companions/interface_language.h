// The language that a companion speaks.
#pragma once

#include "model/texts.h"

namespace orvanta {

/// As the main window has it: English for 1, Russian for everything else. Whoever has chosen none
/// yet hears the session's. Needs a QCoreApplication; creates no application folder.
[[nodiscard]] TextLanguage companionLanguage();

} // namespace orvanta
