#include "companions/exchange/cue.h"

#include "companions/exchange/list_entry.h"
#include "companions/exchange/text_lines.h"

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct CueTrack
{
    std::size_t file = 0; // that its INDEX 01 stands in
    QString number = {};  // as it is written: the text of a track without a title
    QString title = {};
    QString performer = {};
    std::optional<double> start = {};
    int line = 0;
};

/// The words of a line; a quoted one may hold blanks.
QStringList wordsOf(QStringView line)
{
    QStringList words;
    line = line.trimmed();
    while (!line.isEmpty()) {
        const bool isQuoted = line.front() == u'"';
        const QStringView from = isQuoted ? line.sliced(1) : line;
        qsizetype end = isQuoted ? from.indexOf(u'"') : 0;
        while (!isQuoted && end < from.size() && !from[end].isSpace()) {
            ++end;
        }
        end = end < 0 ? from.size() : end;
        words.append(from.first(end).toString());
        line = from.sliced(std::min(end + (isQuoted ? 1 : 0), from.size())).trimmed();
    }
    return words;
}

/// "mm:ss:ff", 75 frames a second; minutes may be more than 59.
std::optional<double> cueSeconds(const QString& text)
{
    constexpr int kParts = 3;
    constexpr int kSecondsInMinute = 60;
    constexpr int kFramesInSecond = 75;
    constexpr int kMostMinutes = 16666;
    const QStringList parts = text.split(u':');
    int numbers[kParts] = {};
    for (int i = 0; i < kParts; ++i) {
        bool isNumber = false;
        numbers[i] = parts.value(i).toInt(&isNumber);
        if (!isNumber || numbers[i] < 0) {
            return std::nullopt;
        }
    }
    const bool fits = parts.size() == kParts && numbers[0] < kMostMinutes &&
                      numbers[1] < kSecondsInMinute && numbers[2] < kFramesInSecond;
    return fits ? std::optional(numbers[0] * kSecondsInMinute + numbers[1] +
                                static_cast<double>(numbers[2]) / kFramesInSecond)
                : std::nullopt;
}

class CueReader
{
public:
    ReadLesson read(QStringView text)
    {
        for (const QStringView line : linesOfText(text)) {
            ++m_line;
            const QStringList words = wordsOf(line);
            readCommand(words.value(0).toUpper(), words);
        }
        for (const CueTrack& track : m_tracks) {
            if (!track.start) {
                m_read.leftOut.push_back({u"noStart", track.line, track.title});
            }
        }
        m_tracks.erase(std::remove_if(m_tracks.begin(), m_tracks.end(),
                                      [](const CueTrack& track) { return !track.start; }),
                       m_tracks.end());
        makePackets();
        return std::move(m_read);
    }

private:
    void readCommand(const QString& command, const QStringList& words)
    {
        if (command == u"FILE") {
            m_files.append(pathOfList(words.value(1)));
        } else if (command == u"TRACK") {
            m_tracks.push_back({.number = words.value(1), .line = m_line});
        } else if (command == u"TITLE") {
            (m_tracks.empty() ? m_title : m_tracks.back().title) = words.value(1);
        } else if (command == u"PERFORMER") {
            (m_tracks.empty() ? m_performer : m_tracks.back().performer) = words.value(1);
        } else if (command == u"INDEX" && words.value(1).toInt() == 1) {
            readStart(words.value(2));
        }
    }

    void readStart(const QString& time)
    {
        const std::optional<double> start = cueSeconds(time);
        if (m_tracks.empty() || m_files.isEmpty() || !start) {
            m_read.leftOut.push_back({u"badLine", m_line, time});
            return;
        }
        m_tracks.back().start = start;
        m_tracks.back().file = static_cast<std::size_t>(m_files.size()) - 1;
    }

    [[nodiscard]] QString textOf(const CueTrack& track) const
    {
        const bool isGuest = !track.performer.isEmpty() && track.performer != m_performer;
        const QString& title = track.title.isEmpty() ? track.number : track.title;
        return isGuest ? track.performer + u" – "_s + title : title;
    }

    void makePackets()
    {
        m_read.lesson.title = m_title;
        std::vector<std::vector<CueTrack>> byFile(static_cast<std::size_t>(m_files.size()));
        for (const CueTrack& track : m_tracks) {
            byFile[track.file].push_back(track);
        }
        for (std::size_t i = 0; i < byFile.size(); ++i) {
            appendFile(m_files[static_cast<qsizetype>(i)], byFile[i]);
        }
        if (m_read.lesson.packets.empty()) {
            m_read.failure = Remark{u"nothingIn", 0, {}};
        } else if (m_read.lesson.packets.size() == 1) {
            m_read.lesson.packets.front().title = m_title;
        }
    }

    void appendFile(const QString& file, const std::vector<CueTrack>& tracks)
    {
        std::vector<LessonPacket>& packets = m_read.lesson.packets;
        if (isAddressElsewhere(file)) {
            m_read.leftOut.push_back({u"address", 0, file});
        } else if (tracks.size() == 1) {
            if (packets.empty() || packets.back().clips.empty()) {
                packets.push_back({.title = m_title});
            }
            packets.back().clips.push_back({file, textOf(tracks.front())});
        } else if (!tracks.empty()) {
            packets.push_back({.title = titleOfPath(file), .markedClip = file});
            for (const CueTrack& track : tracks) {
                packets.back().marks.push_back({*track.start, textOf(track)});
            }
            std::stable_sort(packets.back().marks.begin(), packets.back().marks.end(),
                             [](const auto& a, const auto& b) { return a.seconds < b.seconds; });
        }
    }

    ReadLesson m_read;
    QStringList m_files;
    std::vector<CueTrack> m_tracks;
    QString m_title;
    QString m_performer;
    int m_line = 0;
};

} // namespace

ReadLesson readCue(QStringView text)
{
    return CueReader().read(text);
}

} // namespace orvanta
