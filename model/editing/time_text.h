// Times of brakes as a person reads and types them.
#pragma once

#include <QString>

#include <optional>

namespace orvanta {

/// "1:04.25", from an hour on "1:02:04.25": hundredths of a second, rounded; a point whatever the
/// locale. Negative counts as 0.
[[nodiscard]] QString markTimeText(double seconds);

/// Reads "1:02:04.25", "1:04.25", "64.25" and "000064.25", with a point or a comma. Parts behind a
/// colon are below 60. None for anything else, nor for a time that is below 0 or over 999,999 s,
/// which no document can hold.
[[nodiscard]] std::optional<double> markTime(const QString& text);

/// The time as a packet holds it, in its picture of hundredths.
[[nodiscard]] QString storedTime(double seconds);

} // namespace orvanta
