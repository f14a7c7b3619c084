// What practising adds to the end of a line: pure rules. A line is what the list shows: a clip, or
// the span from one brake to the next.
#pragma once

#include "model/practice.h"

#include <optional>

namespace orvanta {

enum class AfterLine
{
    GoOn, // as the options say
    Again,
    Wait,
};

/// After the line has been played roundsPlayed times, the first round among them. seconds: the
/// line's length; a line without one is not waited for. All rounds come first and then the wait;
/// endless rounds have it between them.
[[nodiscard]] AfterLine nextAfterLine(const Practice& practice, int roundsPlayed, double seconds);

/// What follows the wait.
[[nodiscard]] AfterLine nextAfterWait(const Practice& practice);

/// How long to wait after a line, real seconds; none: until a key. speed: at which the line was
/// played last, 1 as recorded.
[[nodiscard]] std::optional<double> waitAfterLine(const Practice& practice, double lineSeconds,
                                                  double speed);

/// The speed of a round, counted from 1; 1 as recorded.
[[nodiscard]] double speedOfRound(const Practice& practice, int round);

} // namespace orvanta
