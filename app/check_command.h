// "orvanta --check": what a packet, a group or a folder of them names and what is there of it.
#pragma once

#include "model/lesson_check.h"
#include "model/texts.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta {

/// What is asked for at a terminal.
struct CheckCommand
{
    QStringList filesAndFolders;
    CheckWishes wishes;
    bool asJson = false;
    bool isUnderstood = true; // false: an option is not known, or nothing is named
};

/// Nothing unless the first argument is "--check". Behind "--" everything is a file.
[[nodiscard]] std::optional<CheckCommand> checkCommand(const QStringList& arguments);

/// One line for each text: "document: clip 3: missing: path", UTF-8.
[[nodiscard]] QByteArray checkLines(const std::vector<CheckedDocument>& documents,
                                    TextLanguage language);
/// The same as a JSON list of documents; its words are the same in all languages.
[[nodiscard]] QByteArray checkJson(const std::vector<CheckedDocument>& documents);

/// Checks, prints and returns the exit status. Needs a QCoreApplication and no display; creates no
/// application folder.
[[nodiscard]] int runCheck(const CheckCommand& command);

} // namespace orvanta
