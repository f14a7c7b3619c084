// A short sign over the picture: a word or two on a dark ground with round corners.
#pragma once

#include "playback/picture_look.h"
#include "playback/picture_text.h"

namespace orvanta {

/// The font size of a sign in a window of this height, logical pixels.
[[nodiscard]] int signTextSize(int windowHeight);

/// On one line, cut with an ellipsis where it is wider than the shape. lead: stands before the
/// text in the accent's colour; may be empty.
[[nodiscard]] QPixmap pictureOfSign(const QString& lead, const QString& text,
                                    const TextShape& shape,
                                    const QColor& ground = look::kSoftGround);

} // namespace orvanta
