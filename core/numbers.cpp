#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kSignificantDigits = 15;
/// No double has more: with so many digits nothing is rounded.
constexpr int kAllDigits = 767;
constexpr QChar kArabicDecimalMark = u'\u066B';

namespace {

/// A number as decimal digits: 0.DIGITS times ten to the power of pointAfter, without the sign.
struct Digits
{
    std::string digits; // at most 15, without trailing zeros; empty for zero
    int pointAfter = 0; // where the decimal point stands, counted from the first digit
};

} // namespace

/// The first digits of a longer row, halves away from zero, behind a place for the carry.
static std::string roundedTo(std::size_t wanted, std::string digits)
{
    const bool roundUp = digits.size() > wanted && digits[wanted] >= '5';
    digits.resize(wanted, '0');
    digits.insert(digits.begin(), '0');
    if (roundUp) {
        auto digit = digits.rbegin();
        while (*digit == '9') {
            *digit++ = '0';
        }
        ++*digit;
    }
    return digits;
}

/// Rounds to 15 significant digits. Raises 6 for infinities and not-a-numbers: they have none.
static Digits digitsOf(double magnitude)
{
    if (!std::isfinite(magnitude)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    char buffer[kAllDigits + 10];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                   std::chars_format::scientific, kAllDigits - 1);
    const std::string text(buffer, end.ptr);
    const std::size_t exponentAt = text.find('e');
    Digits result;
    result.digits =
        roundedTo(kSignificantDigits, text.substr(0, 1) + text.substr(2, exponentAt - 2));
    result.pointAfter = std::stoi(text.substr(exponentAt + 1)) + 1;
    if (result.digits.front() == '0') {
        result.digits.erase(0, 1);
    } else {
        ++result.pointAfter;
    }
    result.digits.erase(result.digits.find_last_not_of('0') + 1);
    return result;
}

/// Digits with this many decimals, halves away from zero, as one whole number without a point.
static std::string scaledDigits(const Digits& number, int decimals)
{
    const int kept = number.pointAfter + decimals;
    return kept < 0 ? "0" : roundedTo(static_cast<std::size_t>(kept), number.digits);
}

namespace {

/// "000000.00": six whole digits, two decimals; "#####0.000": one whole digit, three decimals.
struct Picture
{
    std::size_t wholeDigits;
    int decimals;
};

} // namespace

static Picture pictureOf(QStringView picture)
{
    const qsizetype point = picture.indexOf(u'.');
    const QStringView whole = picture.left(point);
    return {static_cast<std::size_t>(whole.count(u'0')),
            static_cast<int>(picture.size() - point - 1)};
}

static QString plainText(const Digits& number)
{
    const auto size = static_cast<int>(number.digits.size());
    std::string text = number.digits;
    if (number.pointAfter <= 0) {
        text = "0." + std::string(static_cast<std::size_t>(-number.pointAfter), '0') + text;
    } else if (number.pointAfter >= size) {
        text.append(static_cast<std::size_t>(number.pointAfter - size), '0');
    } else {
        text.insert(static_cast<std::size_t>(number.pointAfter), ".");
    }
    return QString::fromStdString(text);
}

static QString exponentText(const Digits& number)
{
    const int exponent = number.pointAfter - 1;
    QString text = QString::fromStdString(number.digits.substr(0, 1));
    if (number.digits.size() > 1) {
        text += u'.' + QString::fromStdString(number.digits.substr(1));
    }
    const QString power = QString::number(std::abs(exponent)).rightJustified(2, u'0');
    return text + u'E' + (exponent < 0 ? u'-' : u'+') + power;
}

/// Whether the digits fit into 15 places before and after the point.
static bool isPlain(double magnitude, const Digits& number)
{
    const int decimals = static_cast<int>(number.digits.size()) - number.pointAfter;
    return magnitude < 1e15 && decimals <= kSignificantDigits;
}

QChar userDecimalMark()
{
    return QLocale().decimalPoint().at(0);
}

QString formatPicture(double value, QStringView picture, QChar decimalMark)
{
    const Picture wanted = pictureOf(picture);
    std::string digits = scaledDigits(digitsOf(std::abs(value)), wanted.decimals);
    digits.erase(0, digits.find_first_not_of('0'));
    const bool isZero = digits.empty();
    const std::size_t least = wanted.wholeDigits + static_cast<std::size_t>(wanted.decimals);
    if (digits.size() < least) {
        digits.insert(0, least - digits.size(), '0');
    }
    QString text = QString::fromStdString(digits);
    text.insert(text.size() - wanted.decimals, decimalMark);
    return value < 0 && !isZero ? u'-' + text : text;
}

QString formatPicture(double value, QStringView picture)
{
    return formatPicture(value, picture, userDecimalMark());
}

Int16 roundToInt16(double value)
{
    const double whole = std::nearbyint(value);
    if (!(whole >= -32768.0 && whole <= 32767.0)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<qint64>(whole);
}

QString decimalText(double value)
{
    if (value == 0.0) {
        return u"0"_s;
    }
    const double magnitude = std::abs(value);
    const Digits number = digitsOf(magnitude);
    const QString text = isPlain(magnitude, number) ? plainText(number) : exponentText(number);
    return value < 0 ? u'-' + text : text;
}

/// Whether every character may stand in a decimal number with an exponent.
static bool looksDecimal(const QString& text)
{
    return std::ranges::all_of(text, [](QChar c) {
        return (c >= u'0' && c <= u'9') || QStringView(u"+-.eE").contains(c);
    });
}

double decimalValue(const QString& text)
{
    const QString trimmed = text.trimmed();
    const auto marks =
        trimmed.count(u'.') + trimmed.count(u',') + trimmed.count(kArabicDecimalMark);
    bool isNumber = false;
    double value = 0;
    if (marks <= 1) {
        const QString pointed =
            QString(trimmed).replace(u',', u'.').replace(kArabicDecimalMark, u'.');
        value = looksDecimal(pointed) ? QLocale::c().toDouble(pointed, &isNumber) : 0;
    }
    if (!isNumber) {
        value = QLocale().toDouble(trimmed, &isNumber);
    }
    if (!isNumber || !std::isfinite(value)) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return value;
}

Int16 countValue(const QString& text)
{
    return roundToInt16(decimalValue(text));
}

} // namespace orvanta
