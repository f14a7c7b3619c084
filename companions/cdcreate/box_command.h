// "cdcreate --out ...": a box made at a terminal.
#pragma once

#include "companions/cdcreate/box_extra.h"
#include "model/texts.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace orvanta {

/// What the arguments ask for.
struct BoxCommand
{
    QString out; // as written; empty: a window is wanted
    QStringList lessons;
    bool forBrowsers = false;
    bool skipsMissing = false;
    bool replaces = false;
    bool isUnderstood = true; // false: an option is not known or lacks its word
};

/// Behind "--" everything is a lesson.
[[nodiscard]] BoxCommand boxCommand(const QStringList& arguments);

/// The numbers are exit statuses.
enum class BoxResult
{
    Made = 0,
    MadeWithoutMissing = 1,
    NotMade = 2,
};

/// The lines that say what is missing, as "orvanta --check" says it; UTF-8.
[[nodiscard]] QByteArray missingLines(const BoxPlan& plan, TextLanguage language);

/// Makes the box, says on standard error how far it is (on a terminal) and what is wrong, and
/// returns the exit status. Signals that end programs take back what was begun. makePage: null when
/// there is none to be had. Needs a QCoreApplication and no display.
[[nodiscard]] int runBoxCommand(const BoxCommand& command, const MakeExtras& makePage);

} // namespace orvanta
