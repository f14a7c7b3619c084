#include "platform/media/clip_sound.h"

#include "platform/media/clip_input.h"

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kMostErrorsInARow = 2000;         // packets: half a minute of the shortest
constexpr qint64 kMostSamples = 12'000'000'000; // a day and more at the usual rates

namespace {

struct FrameDeleter
{
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

using FramePointer = std::unique_ptr<AVFrame, FrameDeleter>;

/// One pass over the packets of one stream.
class SoundPass
{
public:
    SoundPass(ClipInput& input, const AVStream& stream,
              const std::function<void(const AVFrame&, double)>& each)
        : m_input(input),
          m_stream(stream),
          m_each(each),
          m_decoder(decoderOf(stream)),
          m_packet(av_packet_alloc()),
          m_frame(av_frame_alloc())
    {}

    SoundReading run();

private:
    void decode(const AVPacket* packet);
    void takeFrame();
    [[nodiscard]] bool goesOn() const
    {
        return m_errors < kMostErrorsInARow && m_samples < kMostSamples;
    }

    ClipInput& m_input;
    const AVStream& m_stream;
    const std::function<void(const AVFrame&, double)>& m_each;
    DecoderPointer m_decoder;
    PacketPointer m_packet;
    FramePointer m_frame;
    double m_next = 0; // where a frame without a time goes, seconds
    qint64 m_samples = 0;
    int m_errors = 0; // since the last frame
};

} // namespace

SoundReading SoundPass::run()
{
    if (!m_decoder || !m_packet || !m_frame) {
        return {.isWhole = false, .error = u"no decoder for the sound"_s};
    }
    while (goesOn() && m_input.readPacket(*m_packet)) {
        if (m_packet->stream_index == m_stream.index) {
            decode(m_packet.get());
        }
    }
    if (m_input.isStopped()) {
        return {};
    }
    decode(nullptr); // what it holds back
    if (m_input.hasReadingFailed()) {
        return {.isWhole = false, .error = u"it cannot be read to its end"_s};
    }
    return {.isWhole = true, .error = goesOn() ? QString() : u"its sound is damaged"_s};
}

void SoundPass::decode(const AVPacket* packet)
{
    if (avcodec_send_packet(m_decoder.get(), packet) < 0) {
        ++m_errors;
    }
    while (goesOn() && avcodec_receive_frame(m_decoder.get(), m_frame.get()) >= 0) {
        m_errors = 0;
        takeFrame();
        av_frame_unref(m_frame.get());
    }
}

void SoundPass::takeFrame()
{
    const qint64 pts = m_frame->best_effort_timestamp;
    const double seconds =
        pts != AV_NOPTS_VALUE
            ? static_cast<double>(pts) * av_q2d(m_stream.time_base) - m_input.start()
            : m_next;
    if (m_frame->sample_rate > 0) {
        m_next = seconds + static_cast<double>(m_frame->nb_samples) / m_frame->sample_rate;
    }
    m_samples += m_frame->nb_samples;
    m_each(*m_frame, seconds);
}

static int chosenSound(const AVFormatContext& container)
{
    int chosen = -1;
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const AVStream& stream = *container.streams[i];
        if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO) {
            continue;
        }
        if ((stream.disposition & AV_DISPOSITION_DEFAULT) != 0) {
            return static_cast<int>(i);
        }
        chosen = chosen < 0 ? static_cast<int>(i) : chosen;
    }
    return chosen;
}

SoundReading readSound(ClipInput& input, const std::function<void(const AVFrame&, double)>& each)
{
    const int index = chosenSound(input.container());
    if (index < 0) {
        return {.isWhole = true, .error = {}};
    }
    input.readOnly([index](int stream) { return stream == index; });
    return SoundPass(input, *input.container().streams[index], each).run();
}

} // namespace orvanta
