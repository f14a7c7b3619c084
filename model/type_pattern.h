// The pattern of playable file types.
#pragma once

#include <QString>

namespace orvanta {

/// "*.avi;*.mpg;*.wav" from section "types" of the settings. The first type is always there.
/// Raises 13 when "num" is absent or no number.
[[nodiscard]] QString typePattern(const QString& iniPath);

} // namespace orvanta
