// FFmpeg's text of metadata, with chapters.
#pragma once

#include "companions/exchange/lesson.h"

#include <QStringView>

namespace orvanta {

[[nodiscard]] ReadLesson readFfMetadata(QStringView text);

/// A packet of marks as chapters. Texts stand exactly.
[[nodiscard]] QString ffMetadataText(const LessonPacket& packet);

} // namespace orvanta
