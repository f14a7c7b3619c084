// What companions know of the player: where it is, and which language its user has chosen.
#pragma once

#include "model/texts.h"

#include <QString>
#include <QStringList>

namespace orvanta {

/// The first of the files that is there, seen from this program's folder; empty for none.
[[nodiscard]] QString fileNearCompanions(const QStringList& names);

/// The interface language as the main window sees it: English for 1, Russian for everything else.
/// Where none is chosen yet, the session's language is the best guess.
[[nodiscard]] TextLanguage companionLanguage();

/// The user's drives, moved folders, old code page and earlier versions count as in the player.
void prepareAsPlayer();

/// The player's program file: the one that has started this program, else the one that lies near;
/// empty for none.
[[nodiscard]] QString playerProgram();

/// Hands the file to the player, which a running one opens. False when there is no player.
[[nodiscard]] bool openInPlayer(const QString& file);

} // namespace orvanta
