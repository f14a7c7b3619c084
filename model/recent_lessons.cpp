#include "model/recent_lessons.h"

#include "core/document_writer.h"
#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "model/lesson_lines.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

namespace orvanta {

using namespace Qt::StringLiterals;

// A longer text would be cut off when it is read, and so would no longer be found.
constexpr qsizetype kLongestText = 500;
constexpr qsizetype kLongestPath = 2000;

static QString textToFind(const QString& text)
{
    return text.left(kLongestText).trimmed();
}

QString RecentLesson::folder() const
{
    return QFileInfo(QFileInfo(path).path()).fileName();
}

bool RecentLesson::isThere() const
{
    return QFileInfo(path).isFile();
}

bool RecentLesson::isSameAs(const RecentLesson& other) const
{
    // Written with 15 digits: what comes back may differ in the last.
    return path == other.path && title == other.title && packet == other.packet &&
           clip == other.clip && text == other.text && std::abs(seconds - other.seconds) < 0.0005 &&
           line == other.line && lines == other.lines && over == other.over;
}

static bool hasLine(const PlaylistState& playlist, int packet, int clip)
{
    const auto packets = static_cast<int>(playlist.Playlist.size());
    return packet >= 1 && packet <= packets && clip >= 1 &&
           clip <= static_cast<int>(playlist.packet(packet).Clips.size());
}

double startOfLine(const PlaylistState& playlist, Int16 packet, Int16 clip)
{
    double start = 0;
    if (hasLine(playlist, packet.value(), clip.value()) && playlist.packet(packet).HasBrakes) {
        resumeNext("time of a brake",
                   [&] { start = decimalValue(playlist.packet(packet).clip(clip).Time); });
    }
    return start;
}

/// Lines before the packet.
static int linesBefore(const PlaylistState& playlist, int packet)
{
    int lines = 0;
    for (int p = 1; p < packet && p <= static_cast<int>(playlist.Playlist.size()); ++p) {
        lines += lineCount(playlist.packet(p));
    }
    return lines;
}

RecentLesson recentLesson(const PlaylistState& playlist, const LessonPlace& place)
{
    const int p = place.packet.value();
    const int q = place.clip.value();
    const bool exists = hasLine(playlist, p, q);
    const auto all = static_cast<int>(playlist.Playlist.size()) + 1;
    const int within = exists ? std::min(q, lineCount(playlist.packet(p))) : 0;
    return {.path = playlist.Document,
            .title = QFileInfo(playlist.Document).completeBaseName(),
            .packet = p,
            .clip = q,
            .text = exists ? textToFind(playlist.packet(p).clip(q).Text) : QString(),
            .seconds = std::round(std::max(place.seconds, 0.0) * 1000) / 1000,
            .line = linesBefore(playlist, p) + within,
            .lines = linesBefore(playlist, all),
            .over = false,
            .used = {}};
}

/// The seconds must lie within the line: its end may have moved.
static double secondsWithin(const PlaylistState& playlist, Int16 packet, Int16 clip, double seconds)
{
    const double start = startOfLine(playlist, packet, clip);
    const bool hasNext = hasLine(playlist, packet.value(), clip.value() + 1);
    const double next = hasNext ? startOfLine(playlist, packet, clip + Int16(1)) : start;
    return next > start && start + seconds >= next ? 0 : seconds;
}

static std::optional<LessonPlace> lineOfText(const PlaylistState& playlist,
                                             const RecentLesson& lesson)
{
    const int wanted = linesBefore(playlist, lesson.packet) + lesson.clip;
    int nearest = std::numeric_limits<int>::max();
    std::optional<LessonPlace> found;
    int line = 0;
    for (int p = 1; p <= static_cast<int>(playlist.Playlist.size()); ++p) {
        const PlaylistEntry& packet = playlist.packet(p);
        const int end = line + lineCount(packet);
        for (int q = 1; line < end; ++q) {
            const int distance = std::abs(++line - wanted);
            if (distance < nearest && textToFind(packet.clip(q).Text) == lesson.text) {
                nearest = distance;
                found = LessonPlace{p, q, 0};
            }
        }
    }
    return found;
}

LessonPlace placeIn(const PlaylistState& playlist, const RecentLesson& lesson)
{
    if (lesson.over) {
        return {1, 1, 0};
    }
    if (auto found = lesson.text.isEmpty() ? std::nullopt : lineOfText(playlist, lesson)) {
        found->seconds = secondsWithin(playlist, found->packet, found->clip, lesson.seconds);
        return *found;
    }
    if (!hasLine(playlist, lesson.packet, lesson.clip)) {
        return {1, 1, 0};
    }
    const Int16 packet = lesson.packet;
    const Int16 clip = lesson.clip;
    const bool same = textToFind(playlist.packet(packet).clip(clip).Text) == lesson.text;
    return {packet, clip, same ? secondsWithin(playlist, packet, clip, lesson.seconds) : 0};
}

RecentLessons::RecentLessons(const Module1& module)
    : m_settings(module.settings()),
      m_file(programFile(module.ApplicationFolder, u"\\recent.ini"_s))
{}

static QString sectionOf(int lesson)
{
    return u"lesson"_s + QString::number(lesson);
}

/// From the least one to a 16-bit number; anything else is the least one.
static int numberOr(int least, const QString& text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const bool fits = number >= least && number <= std::numeric_limits<qint16>::max();
    return isNumber && fits ? number : least;
}

static double secondsOf(const QString& text)
{
    constexpr double kMost = 1e6; // a clip of eleven days
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    return isNumber && seconds >= 0 && seconds < kMost ? seconds : 0;
}

static RecentLesson lessonIn(const IniSnapshot& file, int number)
{
    const auto read = [&](const QString& key) { return file.read(sectionOf(number), key); };
    RecentLesson lesson{.path = read(u"path"_s),
                        .title = read(u"title"_s),
                        .packet = numberOr(1, read(u"packet"_s)),
                        .clip = numberOr(0, read(u"clip"_s)),
                        .text = read(u"text"_s),
                        .seconds = secondsOf(read(u"seconds"_s)),
                        .line = std::max(read(u"line"_s).toInt(), 0),
                        .lines = std::max(read(u"lines"_s).toInt(), 0),
                        .over = read(u"over"_s) == u"1",
                        .used = QDateTime::fromString(read(u"used"_s), Qt::ISODate)};
    lesson.line = std::min(lesson.line, lesson.lines);
    if (lesson.title.isEmpty()) {
        lesson.title = QFileInfo(lesson.path).completeBaseName();
    }
    return lesson;
}

std::vector<RecentLesson> RecentLessons::lessons() const
{
    std::vector<RecentLesson> all;
    if (!areKept()) {
        return all;
    }
    const IniSnapshot file(m_file);
    for (int i = 1; i <= kMost; ++i) {
        RecentLesson lesson = lessonIn(file, i);
        const bool isNew = std::ranges::find(all, lesson.path, &RecentLesson::path) == all.end();
        if (lesson.path.startsWith(u'/') && isNew) {
            all.push_back(std::move(lesson));
        } else if (!lesson.path.isEmpty()) {
            qCInfo(logErrors, "recent.ini: lesson %d is left out", i);
        }
    }
    return all;
}

static bool canBeKept(const QString& path)
{
    const bool fits = path.size() <= kLongestPath && !path.contains(u'\n') && !path.contains(u'\r');
    if (!fits) {
        qCInfo(logErrors, "a lesson whose path is too long or has a line break is not kept");
    }
    return fits;
}

void RecentLessons::keep(const RecentLesson& lesson) const
{
    if (!areKept() || !canBeKept(lesson.path)) {
        return;
    }
    std::vector<RecentLesson> all = lessons();
    if (!all.empty() && all.front().isSameAs(lesson)) {
        return;
    }
    std::erase_if(all, [&](const RecentLesson& kept) { return kept.path == lesson.path; });
    all.insert(all.begin(), lesson);
    all.resize(std::min<std::size_t>(all.size(), kMost));
    write(all);
}

void RecentLessons::takeOff(const QString& path) const
{
    std::vector<RecentLesson> all = lessons();
    std::erase_if(all, [&](const RecentLesson& kept) { return kept.path == path; });
    write(all);
}

void RecentLessons::forget() const
{
    if (QFileInfo::exists(m_file) && !QFile::remove(m_file)) {
        qCInfo(logErrors, "%ls cannot be removed", qUtf16Printable(m_file));
    }
}

/// Reading takes one pair of quotes away.
static QString inQuotes(const QString& text)
{
    return text.isEmpty() ? text : u'"' + text + u'"';
}

static void writeLesson(DocumentWriter& file, int number, const RecentLesson& lesson)
{
    const auto write = [&](const QString& key, const QString& value) {
        file.write(sectionOf(number), key, value);
    };
    write(u"path"_s, inQuotes(lesson.path));
    write(u"title"_s, inQuotes(lesson.title));
    write(u"packet"_s, QString::number(lesson.packet));
    write(u"clip"_s, QString::number(lesson.clip));
    write(u"text"_s, inQuotes(lesson.text));
    write(u"seconds"_s, decimalText(lesson.seconds));
    write(u"line"_s, QString::number(lesson.line));
    write(u"lines"_s, QString::number(lesson.lines));
    write(u"over"_s, lesson.over ? u"1"_s : u"0"_s);
    write(u"used"_s, lesson.used.toString(Qt::ISODate));
}

/// As a whole: what is taken off leaves nothing behind.
void RecentLessons::write(const std::vector<RecentLesson>& lessons) const
{
    if (lessons.empty()) {
        return forget();
    }
    resumeNext("recent lessons", [&] {
        DocumentWriter file(m_file);
        int number = 0;
        for (const RecentLesson& lesson : lessons) {
            writeLesson(file, ++number, lesson);
        }
        file.finish();
    });
}

} // namespace orvanta
