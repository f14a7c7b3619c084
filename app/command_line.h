// What the arguments of a launch mean: pure rules.
#pragma once

#include "model/texts.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace orvanta {

/// The arguments behind the program's name as texts. One whose bytes no text can hold is refused
/// with a log line.
[[nodiscard]] QStringList argumentTexts(int count, const char* const* arguments);

/// The answer to a lone "--help" or "--version", for standard output; it ends the launch. language
/// is asked only when the answer is in one.
[[nodiscard]] std::optional<QString>
answerForTerminal(const QStringList& arguments, const std::function<TextLanguage()>& language);

/// The language that the settings name, English when there are none; makes none. Needs an
/// application object, which knows where the program lies.
[[nodiscard]] TextLanguage languageForTerminal();

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
