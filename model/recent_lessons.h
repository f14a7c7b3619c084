// The lessons that were open last, and where each of them was left: recent.ini beside the settings.
#pragma once

#include "model/module1.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace orvanta {

/// A line of what is open, and a place within it.
struct LessonPlace
{
    Int16 packet;
    Int16 clip;         // or brake
    double seconds = 0; // from the line's beginning, in a packet of brakes from its brake

    friend bool operator==(const LessonPlace&, const LessonPlace&) = default;
};

struct RecentLesson
{
    QString path;       // absolute, of the packet or group
    QString title;      // for the eye
    int packet = 1;     // of the line, from 1
    int clip = 1;       // or brake, from 1; 0 before the first brake
    QString text;       // the line's: finds it again when the document has changed
    double seconds = 0; // from the line's beginning
    int line = 0;       // the line's number among all of the lesson, from 1
    int lines = 0;      // how many the lesson has; end marks are none
    bool over = false;  // it was played to its end
    QDateTime used;     // when it was on last; invalid: nobody knows

    /// The name of the folder that it is in.
    [[nodiscard]] QString folder() const;
    /// There is such a file now: no folder, no pipe.
    [[nodiscard]] bool isThere() const;
    /// Whether only the time of its use differs, if anything.
    [[nodiscard]] bool isSameAs(const RecentLesson& other) const;
};

/// Where a line begins in its media, seconds: the time of a brake, else 0.
[[nodiscard]] double startOfLine(const PlaylistState& playlist, Int16 packet, Int16 clip);

/// What is to be kept of the document that is open. The time of its use stays invalid.
[[nodiscard]] RecentLesson recentLesson(const PlaylistState& playlist, const LessonPlace& place);

/// Where the lesson goes on in its document as it is now: at the line of its text that is nearest
/// to where it was; without one at the line in its place, from that line's beginning. The first
/// line when it is over or no such line is there.
[[nodiscard]] LessonPlace placeIn(const PlaylistState& playlist, const RecentLesson& lesson);

/// The list in the file. Nothing is cached. Nothing is raised: a failure is logged.
class RecentLessons
{
public:
    explicit RecentLessons(const Module1& module);

    static constexpr int kMost = 12;

    /// The settings may say that nothing is kept: then the list is empty and stays so.
    [[nodiscard]] bool areKept() const { return m_settings.keepsRecent(); }
    /// The one used last comes first. Spoilt numbers are as in a lesson that has just begun; what
    /// names no file at all is left out.
    [[nodiscard]] std::vector<RecentLesson> lessons() const;
    /// Puts it first, in place of what was kept of the same path, unless nothing has changed.
    void keep(const RecentLesson& lesson) const;
    void takeOff(const QString& path) const;
    /// Removes the file.
    void forget() const;

private:
    void write(const std::vector<RecentLesson>& lessons) const;

    Settings m_settings;
    QString m_file;
};

} // namespace orvanta
