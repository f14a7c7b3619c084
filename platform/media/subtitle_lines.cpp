#include "platform/media/subtitle_lines.h"

#include <algorithm>
#include <tuple>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kLongestGap = 1.5; // seconds, within a sentence

// "{\p1}" begins a drawing, whose points are no text, "{\p0}" ends it.
static bool drawsAfter(QStringView tags, bool draws)
{
    for (qsizetype at = tags.indexOf(u"\\p"); at >= 0; at = tags.indexOf(u"\\p", at + 2)) {
        const QChar scale = at + 2 < tags.size() ? tags[at + 2] : QChar();
        draws = scale.isDigit() ? scale != u'0' : draws; // not "\pos"
    }
    return draws;
}

static QString withoutTags(QStringView text)
{
    QString plain;
    bool draws = false;
    while (!text.isEmpty()) {
        const qsizetype end = text.startsWith(u'{') ? text.indexOf(u'}') : -1;
        if (end > 0) {
            draws = drawsAfter(text.first(end), draws);
            text = text.sliced(end + 1);
            continue;
        }
        const qsizetype next = text.indexOf(u'{', 1);
        const qsizetype count = next < 0 ? text.size() : next;
        plain += draws ? QStringView() : text.first(count);
        text = text.sliced(count);
    }
    return plain;
}

QString textOfEvent(const QString& event)
{
    constexpr int kFieldsBefore = 8;
    const QString text = withoutTags(QString(event.section(u',', kFieldsBefore)));
    return QString(text)
        .replace(u"\\N"_s, u" "_s)
        .replace(u"\\n"_s, u" "_s)
        .replace(u"\\h"_s, u" "_s)
        .simplified();
}

std::vector<SubtitleLine> orderedLines(std::vector<SubtitleLine> lines)
{
    const auto key = [](const SubtitleLine& line) { return std::tie(line.start, line.text); };
    std::stable_sort(lines.begin(), lines.end(),
                     [&](const auto& a, const auto& b) { return a.start < b.start; });
    std::vector<SubtitleLine> ordered;
    for (SubtitleLine& line : lines) {
        const auto isSame = [&](const SubtitleLine& other) { return key(other) == key(line); };
        constexpr qsizetype kLayers = 8;
        const auto from = ordered.end() - std::min<qsizetype>(kLayers, std::ssize(ordered));
        if (std::none_of(from, ordered.end(), isSame)) {
            ordered.push_back(std::move(line));
        }
    }
    return ordered;
}

static bool endsSentence(const QString& text)
{
    static const QString closing = u"\"'»”’)]} "_s;
    static const QString ends = u".!?…。！？"_s;
    qsizetype last = text.size() - 1;
    while (last >= 0 && closing.contains(text[last])) {
        --last;
    }
    return last >= 0 && ends.contains(text[last]);
}

std::vector<SubtitleLine> joinedToSentences(const std::vector<SubtitleLine>& lines)
{
    std::vector<SubtitleLine> sentences;
    for (const SubtitleLine& line : lines) {
        const bool goesOn = !sentences.empty() && !endsSentence(sentences.back().text) &&
                            line.start - sentences.back().end <= kLongestGap;
        if (goesOn) {
            sentences.back().text += u' ' + line.text;
            sentences.back().end = std::max(sentences.back().end, line.end);
        } else {
            sentences.push_back(line);
        }
    }
    return sentences;
}

std::vector<SuggestedMark> marksOfLines(const std::vector<SubtitleLine>& lines)
{
    std::vector<SuggestedMark> marks;
    marks.reserve(lines.size());
    for (const SubtitleLine& line : lines) {
        marks.push_back({line.start, line.text});
    }
    return marks;
}

} // namespace orvanta
