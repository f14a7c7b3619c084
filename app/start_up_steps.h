// The steps of the start-up procedure that need no window.
#pragma once

#include "core/int16.h"
#include "platform/file_types/registry.h"

#include <QString>

namespace orvanta {

/// The stored interface language: 1 English, 2 Russian, 0 when none is stored or what is stored is
/// no number. The integer part counts. Raises 6 outside 16 bits.
[[nodiscard]] Int16 storedLanguage(const QString& iniPath);

/// Restores "\setup\setup.exe" from the file in "\setup\" that [main] "screxe" names, of which
/// only the part behind the last separator counts. Raises 53 when that file is missing and 75 when
/// it cannot be copied.
void repairSetupCopy(const QString& applicationFolder);

/// Gives folders the command "Play clips". Repeated at every start, so that a moved program is
/// corrected.
void registerFolderVerb(Registry& registry, const QString& applicationFolder);

} // namespace orvanta
