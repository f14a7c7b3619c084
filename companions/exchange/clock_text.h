// Times as other programs write them.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace orvanta {

/// Reads "1:02:03.45", "02:03,450", "63.45": hours, minutes, seconds, with a point or a comma. The
/// parts behind a colon are below 60. None for anything else, nor for what no packet could hold.
[[nodiscard]] std::optional<double> clockSeconds(QStringView text);

/// "01:02:03.450".
[[nodiscard]] QString clockWithMilliseconds(double seconds);

/// Thousandths of a second, rounded.
[[nodiscard]] qint64 milliseconds(double seconds);

} // namespace orvanta
