// Export at the command line.
#pragma once

#include "companions/exchange/command_output.h"
#include "companions/exchange/exporting.h"

namespace orvanta {

struct ExportCommand
{
    ExportOrder order;
    bool isUnderstood = true;
    bool knowsFormat = true;
};

[[nodiscard]] ExportCommand exportCommand(const QStringList& arguments);

/// Exports, and says on standard output what was written. Needs an application object, no display.
[[nodiscard]] ExchangeResult runExport(const ExportCommand& command, TextLanguage language);

} // namespace orvanta
