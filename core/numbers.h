// Number texts: pictures, rounding, decimal texts.
#pragma once

#include "core/int16.h"

#include <QChar>
#include <QLocale>
#include <QString>

namespace orvanta {

/// The pictures in use.
inline constexpr char16_t kBrakePicture[] = u"000000.00";     // brake times in files
inline constexpr char16_t kPositionPicture[] = u"#####0.000"; // current time
inline constexpr char16_t kDurationPicture[] = u"#####0.00";  // length of clip

/// Formats with a picture: 15 significant digits first, then the picture's decimals, halves away
/// from zero; never an exponent; more digits than the picture print in full. Raises 6 for
/// infinities and not-a-numbers.
[[nodiscard]] QString formatPicture(double value, QStringView picture, QChar decimalMark);
/// The same with the user's decimal mark.
[[nodiscard]] QString formatPicture(double value, QStringView picture);

/// The decimal mark of the user's locale.
[[nodiscard]] QChar userDecimalMark();

/// Rounds half to even. Raises 6 outside 16 bits (also for infinities and not-a-numbers).
[[nodiscard]] Int16 roundToInt16(double value);

/// A number as the program stores it for itself: a point, at most 15 significant digits. Raises 6
/// for infinities and not-a-numbers.
[[nodiscard]] QString decimalText(double value);

/// Reads a decimal text (a time, a position, a volume): blanks cut; one single ".", "," or U+066B
/// is the decimal mark whatever the locale; anything else by the user's locale. Raises 13 for what
/// is no number, for infinities, not-a-numbers and hexadecimal.
[[nodiscard]] double decimalValue(const QString& text);

/// Reads a count: as a number, rounded half to even. Raises 13 or 6.
[[nodiscard]] Int16 countValue(const QString& text);

} // namespace orvanta
