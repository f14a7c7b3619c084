// The dialogs for files of the add-ins, in the language of the interface.
#pragma once

#include "companions/exchange_windows/export_window.h"
#include "companions/exchange_windows/import_window.h"

namespace orvanta {

[[nodiscard]] ImportServices importServices();
/// With the lessons that were on last.
[[nodiscard]] ExportServices exportServices();

/// What a program with such a window needs before it shows: name, icon, Qt's own words in this
/// language. The application object has to be there.
void prepareCompanionProgram(TextLanguage language);

} // namespace orvanta
