#include "model/editing/time_text.h"

#include "core/error_boundary.h"
#include "core/numbers.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kLatest = 999999;
constexpr qint64 kHundredthsPerMinute = 6000;
constexpr qint64 kMinutesPerHour = 60;
constexpr double kSecondsPerMinute = 60;

QString markTimeText(double seconds)
{
    const auto hundredths =
        static_cast<qint64>(std::llround(std::clamp(seconds, 0.0, kLatest) * 100));
    const qint64 minutes = hundredths / kHundredthsPerMinute;
    const QString rest = u"%1.%2"_s.arg(hundredths % kHundredthsPerMinute / 100, 2, 10, QChar(u'0'))
                             .arg(hundredths % 100, 2, 10, QChar(u'0'));
    if (minutes < kMinutesPerHour) {
        return u"%1:%2"_s.arg(minutes).arg(rest);
    }
    return u"%1:%2:%3"_s.arg(minutes / kMinutesPerHour)
        .arg(minutes % kMinutesPerHour, 2, 10, QChar(u'0'))
        .arg(rest);
}

std::optional<double> markTime(const QString& text)
{
    static const QRegularExpression clock(uR"(^(?:(\d{1,3}):)?(\d{1,4}):(\d{1,2}(?:[.,]\d*)?)$)"_s);
    static const QRegularExpression plain(uR"(^\d{1,12}(?:[.,]\d*)?$)"_s);
    const QString trimmed = text.trimmed();
    const auto number = [](QString digits) { return digits.replace(u',', u'.').toDouble(); };
    double seconds = 0;
    if (const auto match = clock.match(trimmed); match.hasMatch()) {
        const double minutes = match.captured(2).toDouble();
        const double rest = number(match.captured(3));
        const bool hasHours = !match.captured(1).isEmpty();
        if (rest >= kSecondsPerMinute || (hasHours && minutes >= kSecondsPerMinute)) {
            return std::nullopt;
        }
        const double hours = match.captured(1).toDouble();
        seconds = (hours * kMinutesPerHour + minutes) * kSecondsPerMinute + rest;
    } else if (plain.match(trimmed).hasMatch()) {
        seconds = number(trimmed);
    } else {
        return std::nullopt;
    }
    return seconds <= kLatest ? std::optional(seconds) : std::nullopt;
}

QString storedTime(double seconds)
{
    return formatPicture(std::clamp(seconds, 0.0, kLatest), kBrakePicture);
}

} // namespace orvanta
