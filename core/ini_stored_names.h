// Names that an INI-structured file cannot hold as they are.
#pragma once

#include <QString>

namespace orvanta {

/// How a name that a person has chosen stands in a file. What the format would take for something
/// else is written as "\" and two hexadecimal digits, or each writing would add a line that is
/// never found again: in a key a leading ";", "[" or tab, in a section's name "]" and tabs. A name
/// that looks like such a form is written in it, too, so that no two names become one.
[[nodiscard]] QString storedKey(const QString& key);
[[nodiscard]] QString storedSection(const QString& section);

} // namespace orvanta
