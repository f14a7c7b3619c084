// The rules of INI-structured texts in the plainest way, to compare the engine with.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace orvanta::fuzz {

/// Reads the value by going through all lines. text: without a byte-order mark. Names and limits as
/// the engine documents them.
[[nodiscard]] QString naiveValue(const QString& text, const QString& section, const QString& key);

/// The value as it is read after it was written.
[[nodiscard]] QString naiveWritten(const QString& value);

} // namespace orvanta::fuzz
