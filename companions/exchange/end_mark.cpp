#include "companions/exchange/end_mark.h"

#include <QUrl>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QLatin1String kWord("orvanta-end-mark:");

QString endTextOf(const LessonPacket& packet)
{
    return packet.hasEnd && !packet.marks.empty() ? u""_s + packet.marks.back().text : QString();
}

QString endMarkComment(const QString& endText)
{
    // "-->" and "--" mean something in comments.
    return kWord + u' ' + QString::fromLatin1(QUrl::toPercentEncoding(endText, {}, "-"));
}

std::optional<QString> endMarkOf(QStringView comment)
{
    const qsizetype at = comment.indexOf(kWord);
    if (at < 0) {
        return std::nullopt;
    }
    return u""_s + QUrl::fromPercentEncoding(comment.sliced(at + kWord.size()).trimmed().toUtf8());
}

std::vector<MarkSpan> spansOf(const LessonPacket& packet)
{
    std::vector<LessonMark> marks = packet.marks;
    std::stable_sort(marks.begin(), marks.end(),
                     [](const auto& a, const auto& b) { return a.seconds < b.seconds; });
    std::vector<MarkSpan> spans;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const bool isLast = i + 1 == marks.size();
        if (!isLast || !packet.hasEnd) {
            const double end = isLast ? marks[i].seconds : marks[i + 1].seconds;
            spans.push_back({marks[i].seconds, end, marks[i].text});
        }
    }
    return spans;
}

LessonPacket packetOfSpans(const std::vector<MarkSpan>& spans, const QString& endText)
{
    LessonPacket packet;
    for (const MarkSpan& span : spans) {
        packet.marks.push_back({span.start, span.text});
    }
    std::stable_sort(packet.marks.begin(), packet.marks.end(),
                     [](const auto& a, const auto& b) { return a.seconds < b.seconds; });
    if (!spans.empty()) {
        const double end = std::max_element(spans.begin(), spans.end(), [](auto& a, auto& b) {
                               return a.end < b.end;
                           })->end;
        packet.hasEnd = end > packet.marks.back().seconds;
        if (packet.hasEnd) {
            packet.marks.push_back({end, endText});
        }
    }
    return packet;
}

} // namespace orvanta
