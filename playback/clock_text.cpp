#include "playback/clock_text.h"

#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr double kLongest = 1e9; // seconds; more is a spoilt file's

/// Whole parts of a second, so many to each.
static qint64 partsOf(double seconds, int parts)
{
    // 64.2 is a little less than it says: a hair more keeps its tenth.
    constexpr double kHair = 1e-6;
    const double sound = std::isfinite(seconds) ? std::clamp(seconds, 0.0, kLongest) : 0.0;
    return static_cast<qint64>(std::floor(sound * parts + kHair));
}

static QString minutesAndSeconds(qint64 seconds)
{
    return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

static QString withFraction(double seconds, int parts, int digits)
{
    const qint64 whole = partsOf(seconds, parts);
    return minutesAndSeconds(whole / parts) + userDecimalMark() +
           u"%1"_s.arg(whole % parts, digits, 10, QChar(u'0'));
}

QString clockText(double seconds)
{
    return minutesAndSeconds(partsOf(seconds, 10) / 10);
}

QString clockTextWithTenths(double seconds)
{
    return withFraction(seconds, 10, 1);
}

QString clockTextWithHundredths(double seconds)
{
    return withFraction(seconds, 100, 2);
}

} // namespace orvanta
