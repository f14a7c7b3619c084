// The brake entries of the packet editor: time + "{}" + text.
#pragma once

#include "editors/entry_list.h"

#include <optional>
#include <vector>

namespace orvanta {

/// The time in seconds is written with the picture "000000.00" and the user's decimal mark.
[[nodiscard]] QString brakeEntry(double seconds, const QString& text);

/// Appends a brake. The list is never sorted; what was selected stays selected.
void addBrake(EntryList& list, double seconds, const QString& text);

/// A selected brake gets this time and text; with none selected nothing happens.
void rebuildBrake(EntryList& list, double seconds, const QString& text);

/// Times of the brakes in list order, seconds; none where a brake's time is no number.
[[nodiscard]] std::vector<std::optional<double>> brakeTimes(const QStringList& entries);

/// Index, counted from 0, of the brake that a clip standing at this position has reached last;
/// -1 before the first. The list need not be sorted.
[[nodiscard]] int brakePassed(const std::vector<std::optional<double>>& times,
                              double positionSeconds);

} // namespace orvanta
