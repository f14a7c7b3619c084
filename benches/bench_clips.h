// What several measurements share: clips that are made once, and the middle of several values.
#pragma once

#include <QString>

#include <vector>

namespace orvanta::bench {

/// -1 for none.
[[nodiscard]] double median(std::vector<double> values);

/// A clip in the build folder of so many seconds of this ffmpeg source, with a key picture every
/// 250; made when it is not there yet. Returns its path.
QString makeClip(const QString& name, const QString& source, const QString& seconds);

/// 200 s of 720p25. A box at the right is white in every other minute; the right edge is white.
QString minutesClip();

} // namespace orvanta::bench
