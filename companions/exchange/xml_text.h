// What XML can hold, and what may stand in the XML of others.
#pragma once

#include "companions/exchange/lesson.h"

#include <QString>
#include <QXmlStreamReader>

namespace orvanta {

/// The text as XML can hold it: what has no place there is U+FFFD.
[[nodiscard]] QString xmlText(const QString& text);

/// What the reader has failed at; none while it has not.
[[nodiscard]] std::optional<Remark> xmlFailure(const QXmlStreamReader& xml);

/// Goes to the next element that begins. Own entities are refused: nothing that exchanges lessons
/// needs them. False at the end, and when reading fails.
[[nodiscard]] bool nextElement(QXmlStreamReader& xml);

} // namespace orvanta
