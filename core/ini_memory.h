// How long texts of INI-structured files stay in memory.
#pragma once

#include <QString>

namespace orvanta {

/// Whoever has read all of a large document lets go of its memory: the next read or write looks
/// into the file again. A snapshot of it stays valid. Any thread; raises nothing.
void forgetIni(const QString& file);
[[nodiscard]] bool isIniInMemory(const QString& file);

} // namespace orvanta
