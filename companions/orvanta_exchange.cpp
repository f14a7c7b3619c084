// Import and export: one program with two names, since they share nearly all that they are made of.

#include "companions/exchange_windows/exchange_programs.h"

#include <string_view>

int main(int argc, char** argv)
{
    const std::string_view path = argc > 0 ? argv[0] : "";
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const bool exports = name.find("export") != std::string_view::npos;
    return exports ? orvanta::runExportProgram(argc, argv) : orvanta::runImportProgram(argc, argv);
}
