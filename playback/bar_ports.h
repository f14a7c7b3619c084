// What the bar over the picture asks of the rest of the program, and shows of it.
#pragma once

#include "playback/current_line.h"

#include <QString>

#include <functional>
#include <vector>

namespace orvanta {

/// What is null is not there: its button stays hidden.
struct BarPorts
{
    std::function<void()> previousLine;
    std::function<void()> nextLine;
    std::function<void()> lineAgain;
    std::function<std::vector<LessonMark>()> marks; // of the clip that plays
    std::function<void()> toggleRepeat;
    std::function<bool()> isRepeating;   // with toggleRepeat
    std::function<QString()> repeatText; // "Repeat 2 of 5"; empty for none
    std::function<double()> speed;       // 1 as recorded, which is not shown
    std::function<void()> goOn;          // after a wait
};

} // namespace orvanta
