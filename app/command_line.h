// What the arguments of a launch mean: pure rules.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta {

/// The arguments behind the program's name as texts. One whose bytes no text can hold is refused
/// with a log line.
[[nodiscard]] QStringList argumentTexts(int count, const char* const* arguments);

/// The answer to a lone "--help" or "--version", for standard output; it ends the launch.
[[nodiscard]] std::optional<QString> answerForTerminal(const QStringList& arguments);

/// The command line as the program sees it: the arguments joined with one blank.
[[nodiscard]] QString commandLine(const QStringList& arguments);

/// Whether the command line is "/auto", in any case, and nothing else.
[[nodiscard]] bool isAutoStart(const QString& commandLine);

/// The lines to hand over: none for an empty line and "/auto"; "--continue" as it is; one for each
/// argument when there are several and each names an existing file; otherwise the whole command
/// line. A path that exists is made absolute, a "file:" URL becomes its path, anything else stays
/// as typed. A line that the settings file cannot hold is refused with a log line.
[[nodiscard]] QStringList linesToQueue(const QStringList& arguments);

} // namespace orvanta
