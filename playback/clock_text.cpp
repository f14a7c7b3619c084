#include "playback/clock_text.h"

#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qint64 kTenthsOfMinute = 600;
constexpr double kLongest = 1e9; // seconds; more is a spoilt file's

static qint64 tenthsOf(double seconds)
{
    // 64.2 is a little less than it says: a hair more keeps its tenth.
    constexpr double kHair = 1e-6;
    const double sound = std::isfinite(seconds) ? std::clamp(seconds, 0.0, kLongest) : 0.0;
    return static_cast<qint64>(std::floor(sound * 10 + kHair));
}

static QString minutesAndSeconds(qint64 tenths)
{
    return u"%1:%2"_s.arg(tenths / kTenthsOfMinute)
        .arg(tenths % kTenthsOfMinute / 10, 2, 10, QChar(u'0'));
}

QString clockText(double seconds)
{
    return minutesAndSeconds(tenthsOf(seconds));
}

QString clockTextWithTenths(double seconds)
{
    const qint64 tenths = tenthsOf(seconds);
    return minutesAndSeconds(tenths) + userDecimalMark() + QString::number(tenths % 10);
}

} // namespace orvanta
