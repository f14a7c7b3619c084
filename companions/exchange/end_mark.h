// The text of an end mark: formats of other programs know where a chapter ends, but give that no
// text. It goes into a comment, in letters that no format takes for its own.
#pragma once

#include "companions/exchange/lesson.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace orvanta {

/// The text of a packet's end mark; null without one.
[[nodiscard]] QString endTextOf(const LessonPacket& packet);
/// The comment for an end mark of this text, "orvanta-end-mark: Bye".
[[nodiscard]] QString endMarkComment(const QString& endText);
/// The text of such a comment; none for any other comment.
[[nodiscard]] std::optional<QString> endMarkOf(QStringView comment);

/// A span between two marks, as chapters and cues are.
struct MarkSpan
{
    double start = 0;
    double end = 0;
    QString text;
};
/// The spans of a packet by their time: the last mark ends the last one. Without an end mark the
/// last span is as short as can be.
[[nodiscard]] std::vector<MarkSpan> spansOf(const LessonPacket& packet);
/// The other way. endText: of the end mark, that stands where the last span ends; null where nobody
/// has said one, and then it is null there, too.
[[nodiscard]] LessonPacket packetOfSpans(const std::vector<MarkSpan>& spans,
                                         const QString& endText);

} // namespace orvanta
