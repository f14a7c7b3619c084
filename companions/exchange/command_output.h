// How the add-ins answer at a terminal.
#pragma once

#include "companions/exchange/importing.h"
#include "model/texts.h"

namespace orvanta {

/// The exit statuses of import and export.
enum class ExchangeResult
{
    Done = 0,
    SomeLeftOut = 1,
    NothingWritten = 2,
};

/// On standard output.
void printLine(const QString& line);
/// On standard error.
void complain(const QString& line);
/// What was left out, and what failed, on standard error.
void complainAbout(const std::vector<FileRemark>& leftOut, const std::vector<FileRemark>& failures,
                   TextLanguage language);

/// Answers "--help" (with this text) and "--version". False when neither is asked for.
[[nodiscard]] bool answerAtTerminal(const QStringList& arguments, const char* program,
                                    QStringView help);

/// The arguments of a program, without its name.
[[nodiscard]] QStringList wordsOfCommand(int count, char** arguments);
/// Whether there is a display for a window.
[[nodiscard]] bool hasDisplay();

} // namespace orvanta
