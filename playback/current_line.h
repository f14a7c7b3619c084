// The line of the lesson that is on, as the video window shows it.
#pragma once

#include "model/module1.h"

#include <QString>

#include <vector>

namespace orvanta {

struct LessonLine
{
    QString text;   // empty where no line is current
    int number = 0; // in its packet, from 1; 0: before the first brake, at the end mark, or none
    int count = 0;  // the packet's clips, or brakes without the end mark

    friend bool operator==(const LessonLine&, const LessonLine&) = default;
};

[[nodiscard]] LessonLine currentLine(const PlaylistState& playlist);

/// A brake of the clip that plays.
struct LessonMark
{
    double seconds = 0;
    QString text;
    bool isEnd = false; // the end mark

    friend bool operator==(const LessonMark&, const LessonMark&) = default;
};

/// The brakes of the current packet whose times can be read; none in a packet of clips.
[[nodiscard]] std::vector<LessonMark> currentMarks(const PlaylistState& playlist);

} // namespace orvanta
