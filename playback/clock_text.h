// Times as a clock shows them.
#pragma once

#include <QString>

namespace orvanta {

/// "1:04", whole seconds cut off as a clock does; minutes go on beyond the hour. What is below 0 or
/// no number counts as 0.
[[nodiscard]] QString clockText(double seconds);
/// "1:04.2", with the user's decimal mark.
[[nodiscard]] QString clockTextWithTenths(double seconds);
/// "1:04.25", as brakes are kept, with the user's decimal mark.
[[nodiscard]] QString clockTextWithHundredths(double seconds);

} // namespace orvanta
