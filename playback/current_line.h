// The line of the lesson that is on, as the video window shows it.
#pragma once

#include "model/module1.h"

#include <QString>

namespace orvanta {

struct LessonLine
{
    QString text;   // empty where no line is current
    int number = 0; // in its packet, from 1; 0: before the first brake, or none
    int count = 0;  // the packet's clips or brakes

    friend bool operator==(const LessonLine&, const LessonLine&) = default;
};

[[nodiscard]] LessonLine currentLine(const PlaylistState& playlist);

} // namespace orvanta
