#include "companions/exchange/labels.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/text_lines.h"

namespace orvanta {

/// Labels before the sound's beginning count from there.
static std::optional<double> labelSeconds(QStringView text)
{
    text = text.trimmed();
    const bool isBefore = text.startsWith(u'-');
    const std::optional<double> seconds = clockSeconds(isBefore ? text.sliced(1) : text);
    return seconds && isBefore ? 0 : seconds;
}

static std::optional<MarkSpan> labelOf(QStringView line)
{
    const qsizetype first = line.indexOf(u'\t');
    const QStringView rest = first < 0 ? QStringView() : line.sliced(first + 1);
    const qsizetype second = rest.indexOf(u'\t');
    const auto start = first < 0 ? std::nullopt : labelSeconds(line.first(first));
    const auto end = labelSeconds(second < 0 ? rest : rest.first(second));
    if (!start || !end) {
        return std::nullopt;
    }
    const QString text = second < 0 ? QString() : rest.sliced(second + 1).toString();
    return MarkSpan{*start, std::max(*start, *end), text};
}

ReadLesson readLabels(QStringView text)
{
    ReadLesson read;
    std::vector<MarkSpan> spans;
    int number = 0;
    for (const QStringView line : linesOfText(text)) {
        ++number;
        if (line.startsWith(u'\\') || line.trimmed().isEmpty()) {
            continue;
        }
        if (const auto label = labelOf(line)) {
            spans.push_back(*label);
        } else {
            read.leftOut.push_back({u"badLine", number, line.toString()});
        }
    }
    if (spans.empty()) {
        read.failure = read.leftOut.empty() ? Remark{u"nothingIn", 0, {}} : read.leftOut.front();
        return read;
    }
    read.lesson.packets.push_back(packetOfSpans(spans, {}));
    return read;
}

} // namespace orvanta
