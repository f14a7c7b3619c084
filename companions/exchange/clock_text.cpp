#include "companions/exchange/clock_text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kSecondsInMinute = 60;
constexpr double kMostSeconds = 999999; // the most that a packet's picture of a time holds

static bool isDigits(QStringView text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// "03", "3.45", "03,450"; the comma as a point.
static std::optional<double> plainSeconds(QStringView text)
{
    QString number = text.toString();
    number.replace(u',', u'.');
    const qsizetype point = number.indexOf(u'.');
    const QStringView whole = QStringView(number).first(point < 0 ? number.size() : point);
    const bool isNumber =
        isDigits(whole) && (point < 0 || isDigits(QStringView(number).sliced(point + 1)));
    return isNumber ? std::optional(number.toDouble()) : std::nullopt;
}

std::optional<double> clockSeconds(QStringView text)
{
    constexpr qsizetype kMostParts = 3;
    const QList<QStringView> parts = text.trimmed().split(u':');
    const std::optional<double> last = plainSeconds(parts.last());
    if (parts.size() > kMostParts || !last || (parts.size() > 1 && *last >= kSecondsInMinute)) {
        return std::nullopt;
    }
    double seconds = 0;
    for (qsizetype i = 0; i + 1 < parts.size(); ++i) {
        const double part = parts[i].toDouble();
        if (!isDigits(parts[i]) || (i > 0 && part >= kSecondsInMinute)) {
            return std::nullopt;
        }
        seconds = (seconds + part) * kSecondsInMinute;
    }
    seconds += *last;
    return seconds <= kMostSeconds ? std::optional(seconds) : std::nullopt;
}

qint64 milliseconds(double seconds)
{
    constexpr double kThousand = 1000;
    return std::llround(std::clamp(seconds, 0.0, kMostSeconds) * kThousand);
}

QString clockWithMilliseconds(double seconds)
{
    const qint64 all = milliseconds(seconds);
    constexpr qint64 kHour = 3'600'000;
    constexpr qint64 kMinute = 60'000;
    constexpr qint64 kSecond = 1000;
    const QLatin1Char zero('0');
    return u"%1:%2:%3.%4"_s.arg(all / kHour, 2, 10, zero)
        .arg(all % kHour / kMinute, 2, 10, zero)
        .arg(all % kMinute / kSecond, 2, 10, zero)
        .arg(all % kSecond, 3, 10, zero);
}

} // namespace orvanta
