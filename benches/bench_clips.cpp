#include "benches/bench_clips.h"

#include <QFileInfo>
#include <QProcess>

#include <algorithm>

namespace orvanta::bench {

using namespace Qt::StringLiterals;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

QString makeClip(const QString& name, const QString& source, const QString& seconds)
{
    const QString path = QStringLiteral(ORVANTA_BUILD_DIR "/") + name;
    if (!QFileInfo::exists(path)) {
        QProcess::execute(u"ffmpeg"_s,
                          {u"-nostdin"_s, u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, source,
                           u"-t"_s, seconds, u"-c:v"_s, u"libx264"_s, u"-preset"_s, u"ultrafast"_s,
                           u"-g"_s, u"250"_s, u"-pix_fmt"_s, u"yuv420p"_s, path});
    }
    return path;
}

QString minutesClip()
{
    return makeClip(
        u"bench-minutes.mp4"_s,
        u"testsrc2=size=1280x720:rate=25,drawbox=x=1000:y=300:w=200:h=200:color=black:t=fill,"
        "drawbox=x=1000:y=300:w=200:h=200:color=white:t=fill:enable='gte(mod(t,120),60)',"
        "drawbox=x=1240:y=0:w=40:h=720:color=white:t=fill"_s,
        u"200"_s);
}

} // namespace orvanta::bench
