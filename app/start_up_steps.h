// The steps of the start-up procedure that need no window.
#pragma once

#include "platform/file_types/registry.h"
#include "platform/media/media_library.h"

#include <QString>

namespace orvanta {

/// Restores "\setup\setup.exe" from the file in "\setup\" that [main] "screxe" names, of which
/// only the part behind the last separator counts. Raises 53 when that file is missing and 75 when
/// it cannot be copied.
void repairSetupCopy(const QString& applicationFolder);

/// How documents are read and their files looked for, as the settings beside the program's say.
/// Earlier versions of what is saved are kept from now on. Creates nothing.
void prepareDocuments(const QString& applicationFolder);

/// What the settings beside the program's say about the player. Creates nothing.
[[nodiscard]] MpvOptionList playerOptions(const QString& applicationFolder);

/// What they say about the drawing of the video window's pictures. A driver that fails is
/// remembered there.
[[nodiscard]] RendererChoice rendererChoice(const QString& applicationFolder);

/// One line for people: what the settings and this machine's devices (in the folder) let draw and
/// decode pictures. Starts nothing, so it cannot say what a driver would answer.
[[nodiscard]] QString pictureLine(const QString& applicationFolder,
                                  const QString& devices = QStringLiteral("/dev"));

/// Gives folders the command "Play clips". Repeated at every start, so that a moved program is
/// corrected.
void registerFolderVerb(Registry& registry, const QString& applicationFolder);

} // namespace orvanta
