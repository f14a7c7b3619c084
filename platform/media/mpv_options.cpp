#include "platform/media/mpv_options.h"

#include "platform/media/container_formats.h"
#include "platform/media/mpv_handle.h"
#include "platform/media/opengl_driver.h"

#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvanta {

namespace {

struct Option
{
    const char* name;
    const char* value;
};

constexpr Option kOptions[] = {
    // Nobody but this program starts, stops or reads anything.
    {"config", "no"},
    {"terminal", "no"},
    {"ytdl", "no"},
    {"load-scripts", "no"},
    {"osc", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"input-cursor", "no"},
    {"input-media-keys", "no"},
    {"resume-playback", "no"},
    {"load-auto-profiles", "no"},
    {"stop-screensaver", "no"},
    // The file itself and nothing that it, or its folder, points to.
    {"demuxer", "lavf"},
    {"sub-demuxer", "lavf"},
    {"audio-demuxer", "lavf"},
    {"access-references", "no"},
    {"autoload-files", "no"},
    {"ordered-chapters", "no"},
    {"load-unsafe-playlists", "no"},
    {"cover-art-auto", "no"},
    {"audio-file-auto", "no"},
    {"sub-auto", "no"},
    {"sid", "no"},
    {"embeddedfonts", "no"},
    // The end of a clip is the library pausing by itself; nobody else touches "pause".
    {"idle", "yes"},
    {"pause", "yes"},
    {"keep-open", "yes"},
    {"keep-open-pause", "yes"},
    // What is appended follows without a gap, where the device can take it as it is.
    {"prefetch-playlist", "yes"},
    {"gapless-audio", "weak"},
    // Picture and sound.
    {"vo", "libmpv"},
    {"osd-level", "0"},
    {"zimg-threads", "1"}, // frames are drawn on a thread of their own; waking more costs more
    {"audio-display", "no"},
    {"audio-fallback-to-null", "yes"},
    {"audio-format", "float"}, // short sample formats clip the quietest volumes to silence
    {"volume-max", "100"},
    {"hr-seek", "yes"},
    // Local files need no cache of their own: the system has one.
    {"cache", "no"},
    {"demuxer-max-bytes", "32MiB"},
    {"demuxer-max-back-bytes", "4MiB"},
};

// Measured with libmpv 0.35 and a minute of each bare stream that FFmpeg writes: a seek to second
// 57 must leave three seconds to the end, and one to 0 from there must play from the start. Sound
// (aac, ac3, dts, dtshd, eac3, loas, mp3, flac, g722) and the other pictures (mjpeg, m4v,
// mpegvideo, obu) do both. In these, whose pictures reach the library without time stamps, any seek
// is answered as done and leaves the player at the end. Nothing writes vc1; it has none either.
constexpr std::array kUnseekable = {"h264", "hevc", "vc1"};

} // namespace

// The container options hold commas, so they cannot be given as one text.
static bool setContainerOptions(MpvHandle& mpv)
{
    QByteArray protocols = "file";
    QByteArray formats = kContainerFormats;
    std::array<mpv_node, 2> values = {};
    for (mpv_node& value : values) {
        value.format = MPV_FORMAT_STRING;
    }
    values[0].u.string = protocols.data();
    values[1].u.string = formats.data();
    QByteArray protocolKey = "protocol_whitelist";
    QByteArray formatKey = "format_whitelist";
    std::array<char*, 2> keys = {protocolKey.data(), formatKey.data()};
    mpv_node_list pairs = {};
    pairs.num = 2;
    pairs.values = values.data();
    pairs.keys = keys.data();
    mpv_node map = {};
    map.format = MPV_FORMAT_NODE_MAP;
    map.u.list = &pairs;
    return mpv.setOption("demuxer-lavf-o", map);
}

// Where there is no such device the library would look for its drivers all the same, at each clip,
// and some of them say so on standard error.
QByteArray hardwareDecoding(const QString& devices)
{
    return hasGraphicsDevice(devices) ? "auto-copy-safe" : "no";
}

QByteArray decodedPicturesWay(const QString& devices)
{
    if (QFileInfo::exists(devices + QStringLiteral("/nvidiactl"))) {
        return "auto";
    }
    return hasGraphicsDevice(devices) ? "vaapi" : "no";
}

bool applyMpvOptions(MpvHandle& mpv, const MpvOptionList& extra)
{
    bool all = setContainerOptions(mpv);
    // One thread for each core; the library would take one more, and its pictures with it.
    all = mpv.setOption("vd-lavc-threads", QByteArray::number(QThread::idealThreadCount())) && all;
    all = mpv.setOption("hwdec", hardwareDecoding()) && all;
    all = mpv.setOption("gpu-hwdec-interop", decodedPicturesWay()) && all;
    for (const Option& option : kOptions) {
        all = mpv.setOption(option.name, option.value) && all;
    }
    for (const auto& [name, value] : extra) {
        all = mpv.setOption(name.constData(), value) && all;
    }
    return all;
}

// The library's scale is the cube root of the amplitude: 60 decibels to a power of ten.
double mpvVolume(int hundredthsOfDecibel)
{
    return 100.0 * std::pow(10.0, std::min(hundredthsOfDecibel, 0) / 6000.0);
}

bool isUnseekable(const QByteArray& fileFormat)
{
    return std::any_of(kUnseekable.begin(), kUnseekable.end(),
                       [&](const char* name) { return fileFormat == name; });
}

double seekHeadStart(const QByteArray& fileFormat)
{
    return fileFormat == "mpegts" || fileFormat == "mpeg" ? 10.0 : 0.0;
}

} // namespace orvanta
