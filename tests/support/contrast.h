// How well texts can be read in a picture: the contrast of their ink and their ground.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

namespace orvanta::test {

/// What is asked of a text, and of one that is switched off.
inline constexpr double kReadable = 4.5;
inline constexpr double kReadableWhenOff = 3.0;

/// 1, the same light, to 21, black on white. By the relative luminance of the colours as sRGB;
/// their opacity does not count.
[[nodiscard]] double contrastOf(const QColor& one, const QColor& other);

/// The lesser contrast of a text and the ground behind each line of its pixels; 1 where no text is.
/// The ground may become lighter downwards but not sideways. Its rectangle, of logical pixels,
/// holds one text in one colour and nothing else. Draw it large: thin letters never reach their
/// colour.
[[nodiscard]] double textContrast(const QImage& picture, const QRect& place);

/// The contrast of white letters and what surrounds them at this distance, pixels, when they lie on
/// a picture of one colour; of 20 such places the least counts not. letters: with opacity. 1
/// without letters.
[[nodiscard]] double outlineContrast(const QImage& letters, const QColor& picture, int distance);

} // namespace orvanta::test
