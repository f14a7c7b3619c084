// Matroska chapters as XML, as mkvmerge and mkvextract have them.
#pragma once

#include "companions/exchange/lesson.h"

#include <QByteArray>

namespace orvanta {

/// Reads the first edition, without hidden chapters; those within others count by their time.
/// Nothing outside the bytes is read.
[[nodiscard]] ReadLesson readMatroskaChapters(const QByteArray& bytes);

/// A packet of marks as chapters, in UTF-8.
[[nodiscard]] QByteArray matroskaChaptersText(const LessonPacket& packet);

} // namespace orvanta
