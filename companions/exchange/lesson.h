// A lesson on its way from one kind of file to another.
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace orvanta {

struct LessonMark
{
    double seconds = 0;
    QString text;

    friend bool operator==(const LessonMark&, const LessonMark&) = default;
};

struct LessonClip
{
    QString path; // as its list writes it, until it is looked for
    QString text;

    friend bool operator==(const LessonClip&, const LessonClip&) = default;
};

/// Either clips, or one clip and marks in it.
struct LessonPacket
{
    QString title = {};
    std::vector<LessonClip> clips = {};
    QString markedClip = {}; // empty: whoever asks for the lesson has to say which
    std::vector<LessonMark> marks = {};
    QString picture = {}; // that a group shows for it; no list of another program has it
    bool hasEnd = false;  // the last mark is the end mark; else the clip's end is

    friend bool operator==(const LessonPacket&, const LessonPacket&) = default;
};

struct Lesson
{
    QString title = {}; // may be empty
    std::vector<LessonPacket> packets = {};

    friend bool operator==(const Lesson&, const Lesson&) = default;
};

/// What is to be said about a place in a file. what: a row of "Exchange" in the table of texts.
struct Remark
{
    const char16_t* what = nullptr;
    int line = 0;        // from 1; 0: about the whole file
    QString detail = {}; // the part of the file that it is about
};

/// What a file says. The remarks are about what had to be left out.
struct ReadLesson
{
    Lesson lesson;
    std::vector<Remark> leftOut;
    std::optional<Remark> failure; // then there is no lesson
};

/// At most so many entries stand in a packet, and so many packets in a group.
inline constexpr std::size_t kMostInPacket = 32767;

} // namespace orvanta
