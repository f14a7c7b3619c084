// The keys of the page: rows of the program's own table of commands.
#pragma once

#include <QJsonArray>
#include <QStringList>

namespace orvanta {

/// The names of the commands that the page has, in the order of the table.
[[nodiscard]] QStringList pageCommands();

/// For each of them its keys as a browser calls them, its letter, and whether a key counts in the
/// list alone.
[[nodiscard]] QJsonArray pageKeys();

} // namespace orvanta
