#include "companions/exchange/time_list.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/text_lines.h"

#include <QRegularExpression>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kTime = u"(\\d{1,3}(?::\\d{2}){1,2}(?:[.,]\\d{1,3})?)"_s;

static std::optional<MarkSpan> spanOf(const QRegularExpressionMatch& match, int time)
{
    const auto start = match.hasMatch() ? clockSeconds(match.captured(time)) : std::nullopt;
    const auto end = match.hasMatch() ? clockSeconds(match.captured(u"end"_s)) : std::nullopt;
    if (!start) {
        return std::nullopt;
    }
    return MarkSpan{*start, std::max(*start, end.value_or(*start)), match.captured(u"text"_s)};
}

static std::optional<MarkSpan> listedSpan(const QString& line)
{
    static const QRegularExpression front(
        u"^(?:\\d+\\s*[.)]\\s+|[-–—*•]\\s*)?[\\[(]?"_s + kTime +
        u"(?:\\s*[-–—]\\s*(?<end>\\d{1,3}(?::\\d{2}){1,2}(?:[.,]\\d{1,3})?))?[\\])]?"
        u"(?:\\s*[-–—:|]+)?(?:\\s+|$)(?<text>.*)$"_s);
    // As in "[00:12.50]Text", the form of lyrics.
    static const QRegularExpression bracket(u"^\\["_s + kTime + u"\\](?<end>)(?<text>.*)$"_s);
    static const QRegularExpression back(u"^(?<text>.*?)(?:\\s*[-–—:|]+)?\\s+[\\[(]?"_s + kTime +
                                         u"[\\])]?(?<end>)$"_s);
    const QString trimmed = line.trimmed();
    if (const auto span = spanOf(front.match(trimmed), 1)) {
        return span;
    }
    if (const auto span = spanOf(bracket.match(trimmed), 1)) {
        return span;
    }
    return spanOf(back.match(trimmed), 2);
}

ReadLesson readTimeList(QStringView text)
{
    constexpr qsizetype kLongestLine = 5000; // longer ones are no titles
    ReadLesson read;
    std::vector<MarkSpan> spans;
    int number = 0;
    for (const QStringView line : linesOfText(text)) {
        ++number;
        const auto span = line.size() > kLongestLine ? std::nullopt : listedSpan(line.toString());
        if (span) {
            spans.push_back(*span);
        } else if (!line.trimmed().isEmpty()) {
            read.leftOut.push_back({u"badLine", number, line.left(100).toString()});
        }
    }
    if (spans.empty()) {
        read.failure = Remark{u"nothingIn", 0, {}};
        return read;
    }
    read.lesson.packets.push_back(packetOfSpans(spans, {}));
    return read;
}

} // namespace orvanta
