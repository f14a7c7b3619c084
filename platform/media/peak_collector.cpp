#include "platform/media/peak_collector.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

extern "C" {
#include <libavutil/frame.h>
}

namespace orvanta {

constexpr float kLoudest = 127;
constexpr double kLongestTime = 1e9; // seconds; more is a spoilt file's

namespace {

struct Extremes
{
    float low = 0;
    float high = 0;
};

/// One channel of a frame, or all of them side by side.
template <typename Sample> struct Channel
{
    const Sample* samples;
    std::ptrdiff_t stride;
};

} // namespace

template <typename Sample> static float levelOf(Sample sample)
{
    if constexpr (std::is_floating_point_v<Sample>) {
        return static_cast<float>(sample);
    } else if constexpr (std::is_unsigned_v<Sample>) {
        return (static_cast<float>(sample) - 128.0F) / 128.0F;
    } else {
        constexpr float kScale = -1.0F / static_cast<float>(std::numeric_limits<Sample>::min());
        return static_cast<float>(sample) * kScale;
    }
}

// What is no number compares with nothing and so changes nothing.
static void widen(Extremes& extremes, float level)
{
    extremes.low = level < extremes.low ? level : extremes.low;
    extremes.high = level > extremes.high ? level : extremes.high;
}

template <typename Sample> static Channel<Sample> channelOf(const AVFrame& frame, int channel)
{
    const int channels = frame.ch_layout.nb_channels;
    if (av_sample_fmt_is_planar(static_cast<AVSampleFormat>(frame.format)) != 0) {
        return {reinterpret_cast<const Sample*>(frame.extended_data[channel]), 1};
    }
    return {reinterpret_cast<const Sample*>(frame.extended_data[0]) + channel, channels};
}

template <typename Sample>
static Extremes extremesOf(const AVFrame& frame, std::ptrdiff_t from, std::ptrdiff_t to)
{
    const int channels = frame.ch_layout.nb_channels;
    Extremes extremes;
    if (channels <= 2) { // by far the most clips
        const Channel<Sample> left = channelOf<Sample>(frame, 0);
        const Channel<Sample> right = channelOf<Sample>(frame, channels - 1);
        for (std::ptrdiff_t i = from; i < to; ++i) {
            widen(extremes, (levelOf(left.samples[i * left.stride]) +
                             levelOf(right.samples[i * right.stride])) /
                                2);
        }
        return extremes;
    }
    for (std::ptrdiff_t i = from; i < to; ++i) {
        float sum = 0;
        for (int c = 0; c < channels; ++c) {
            const Channel<Sample> channel = channelOf<Sample>(frame, c);
            sum += levelOf(channel.samples[i * channel.stride]);
        }
        // As two: voices stand in the centre alone, and would be a sixth of their level.
        widen(extremes, sum / 2);
    }
    return extremes;
}

static Extremes extremesOf(const AVFrame& frame, std::ptrdiff_t from, std::ptrdiff_t to)
{
    switch (av_get_packed_sample_fmt(static_cast<AVSampleFormat>(frame.format))) {
    case AV_SAMPLE_FMT_U8:
        return extremesOf<quint8>(frame, from, to);
    case AV_SAMPLE_FMT_S16:
        return extremesOf<qint16>(frame, from, to);
    case AV_SAMPLE_FMT_S32:
        return extremesOf<qint32>(frame, from, to);
    case AV_SAMPLE_FMT_S64:
        return extremesOf<qint64>(frame, from, to);
    case AV_SAMPLE_FMT_FLT:
        return extremesOf<float>(frame, from, to);
    case AV_SAMPLE_FMT_DBL:
        return extremesOf<double>(frame, from, to);
    default:
        return {};
    }
}

static qint8 stored(float level)
{
    return static_cast<qint8>(std::lround(std::clamp(level, -1.0F, 1.0F) * kLoudest));
}

static void merge(PeakPair& pair, const Extremes& extremes)
{
    pair.low = std::min(pair.low, stored(extremes.low));
    pair.high = std::max(pair.high, stored(extremes.high));
}

void PeakCollector::add(const AVFrame& frame, double seconds)
{
    if (frame.sample_rate <= 0 || frame.ch_layout.nb_channels <= 0 ||
        !(std::abs(seconds) < kLongestTime)) {
        return;
    }
    const double rate = frame.sample_rate;
    // Whole samples, so that a frame's parts meet without a gap.
    const qint64 first = std::llround(seconds * rate);
    qint64 sample = std::max<qint64>(first, 0);
    const qint64 end = first + frame.nb_samples;
    while (sample < end) {
        const qint64 place = sample * kPeaksPerSecond / frame.sample_rate;
        if (place >= kMostPeaks) {
            return;
        }
        const qint64 next =
            ((place + 1) * frame.sample_rate + kPeaksPerSecond - 1) / kPeaksPerSecond;
        const qint64 to = std::min(next, end);
        const auto index = static_cast<std::size_t>(place);
        m_peaks.resize(std::max(m_peaks.size(), index + 1));
        merge(m_peaks[index], extremesOf(frame, sample - first, to - first));
        sample = to;
    }
}

} // namespace orvanta
