// Import at the command line.
#pragma once

#include "companions/exchange/command_output.h"

namespace orvanta {

struct ImportCommand
{
    ImportOrder order;
    QString out;        // empty: beside the first file
    bool opens = false; // in the player
    bool isUnderstood = true;
};

[[nodiscard]] ImportCommand importCommand(const QStringList& arguments);

/// Imports, writes, and says on standard output what was written. Needs no display.
[[nodiscard]] ExchangeResult runImport(const ImportCommand& command, TextLanguage language);

/// Where the lesson goes, and what is against that.
struct ImportTarget
{
    QString file; // whole
    const char16_t* objection = nullptr;
};
[[nodiscard]] ImportTarget importTarget(const Lesson& lesson, const QString& out,
                                        const QString& source);

/// Writes the lesson; null, or why it could not be.
[[nodiscard]] const char16_t* writeImported(const Lesson& lesson, const QString& target);

} // namespace orvanta
