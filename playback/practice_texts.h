// How practice is said: on chips, in the panel, on the picture.
#pragma once

#include "model/practice.h"
#include "model/texts.h"

#include <vector>

namespace orvanta {

/// "0.8 ×", with the decimal mark of the user's locale. speed: percent.
[[nodiscard]] QString speedText(double speed);
/// "once", "3 times", "endlessly".
[[nodiscard]] QString timesText(int times, TextLanguage language);
/// What follows a line: "no wait", "until a key", "as long as it lasted", "1.5 × its length",
/// "5 seconds". wait and seconds as in Practice.
[[nodiscard]] QString waitText(int wait, int seconds, TextLanguage language);
/// "Repeat 2 of 5"; of an endless number only "Repeat 2". round: from 1.
[[nodiscard]] QString roundText(int round, int times, TextLanguage language);

/// One thing that is not as usual.
struct PracticeChip
{
    QString text;
    Practice without; // the practice that is left when it is taken away

    friend bool operator==(const PracticeChip&, const PracticeChip&) = default;
};

[[nodiscard]] std::vector<PracticeChip> practiceChips(const Practice& practice,
                                                      TextLanguage language);

} // namespace orvanta
