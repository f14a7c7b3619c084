// The lesson's text as a picture of its own: white, with a soft dark outline that stands out from
// whatever lies below.
#pragma once

#include "model/settings.h"

#include <QPixmap>
#include <QString>

namespace orvanta {

inline constexpr int kMostLines = 3;

struct TextShape
{
    int fontSize = 0; // logical pixels
    int width = 0;    // logical pixels, of the longest line
    qreal devicePixelRatio = 1;
};

/// The font size for a picture of this height, logical pixels.
[[nodiscard]] int pictureTextSize(TextLevel level, int pictureHeight);

/// The text in at most three lines, wrapped at words; what is left of it, with an ellipsis, where
/// it does not fit. Blanks and line breaks count as one blank; nothing in it is markup.
[[nodiscard]] QString textThatFits(const QString& text, const TextShape& shape);

/// As large as the text is, with the outline; null for a text without letters.
[[nodiscard]] QPixmap pictureOfText(const QString& text, const TextShape& shape);

} // namespace orvanta
