// Import and export as programs: a window without arguments, else an answer at the terminal.
#pragma once

namespace orvanta {

/// Each takes the arguments of main() and gives its exit status.
[[nodiscard]] int runImportProgram(int count, char** arguments);
[[nodiscard]] int runExportProgram(int count, char** arguments);

} // namespace orvanta
