#include "platform/media/clip_input.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <unistd.h>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
}

namespace orvanta {

constexpr int kBufferBytes = 1 << 16;
constexpr qint64 kMostPackets = 50'000'000;      // a day of the shortest ones
constexpr qint64 kMostRereading = 4;             // times a file's size
constexpr qint64 kFreeReading = qint64{1} << 28; // bytes; small files are searched more often
constexpr char kLargestSound[] = "1048576";      // samples in a frame
constexpr char kLargestPicture[] = "67108864";   // pixels

namespace {

class FileBytes : public ByteSource
{
public:
    explicit FileBytes(OpenedClip clip)
        : m_clip(std::move(clip))
    {}

    [[nodiscard]] qint64 size() const override { return m_clip.status.st_size; }
    [[nodiscard]] qint64 read(char* to, qint64 size, qint64 offset) override
    {
        ssize_t count = 0;
        do {
            count = pread(m_clip.file.number(), to, static_cast<std::size_t>(size), offset);
        } while (count < 0 && errno == EINTR);
        return count;
    }

private:
    OpenedClip m_clip;
};

class MemoryBytes : public ByteSource
{
public:
    explicit MemoryBytes(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}

    [[nodiscard]] qint64 size() const override { return m_bytes.size(); }
    [[nodiscard]] qint64 read(char* to, qint64 size, qint64 offset) override
    {
        const qint64 count = std::clamp<qint64>(m_bytes.size() - offset, 0, size);
        std::copy_n(m_bytes.constData() + (count > 0 ? offset : 0), count, to);
        return count;
    }

private:
    QByteArray m_bytes;
};

} // namespace

// Asked before, too: the opening alone might set a device in motion.
OpenedClip openClip(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const std::optional<struct stat> before = statusOf(name);
    OpenedClip clip;
    if (!path.startsWith(u'/') || !before || !S_ISREG(before->st_mode)) {
        return clip;
    }
    Descriptor file = Descriptor::open(name, O_RDONLY);
    const std::optional<struct stat> status = file.status();
    if (status && S_ISREG(status->st_mode)) {
        clip = {std::move(file), *status};
    }
    return clip;
}

std::unique_ptr<ByteSource> fileBytes(OpenedClip clip)
{
    return clip.file.isOpen() ? std::make_unique<FileBytes>(std::move(clip)) : nullptr;
}

std::unique_ptr<ByteSource> fileBytes(const QString& path)
{
    return fileBytes(openClip(path));
}

std::unique_ptr<ByteSource> memoryBytes(QByteArray bytes)
{
    return std::make_unique<MemoryBytes>(std::move(bytes));
}

void MediaDeleter::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void MediaDeleter::operator()(AVFormatContext* context) const
{
    avformat_close_input(&context);
}

// The libraries may have replaced the buffer that they were given.
void MediaDeleter::operator()(AVIOContext* context) const
{
    av_freep(&context->buffer);
    avio_context_free(&context);
}

void MediaDeleter::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

QString mediaErrorText(int error)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text = {};
    av_strerror(error, text.data(), text.size());
    return QString::fromUtf8(text.data());
}

ClipInput::ClipInput(std::unique_ptr<ByteSource> bytes, Stopped stopped)
    : m_bytes(std::move(bytes)),
      m_stopped(std::move(stopped)),
      m_bytesLeft(m_bytes->size() * kMostRereading + kFreeReading),
      m_packetsLeft(kMostPackets)
{}

ClipInput::~ClipInput() = default;

int ClipInput::readBytes(void* self, unsigned char* to, int size)
{
    auto& input = *static_cast<ClipInput*>(self);
    if (input.m_stopped() || input.m_bytesLeft <= 0) {
        return AVERROR_EXIT;
    }
    const qint64 count = input.m_bytes->read(reinterpret_cast<char*>(to), size, input.m_offset);
    if (count < 0) {
        input.m_failed = true;
        return AVERROR(EIO);
    }
    input.m_offset += count;
    input.m_bytesLeft -= count;
    return count == 0 ? AVERROR_EOF : static_cast<int>(count);
}

int64_t ClipInput::seekBytes(void* self, int64_t offset, int whence)
{
    auto& input = *static_cast<ClipInput*>(self);
    const qint64 size = input.m_bytes->size();
    if ((whence & AVSEEK_SIZE) != 0) {
        return size;
    }
    const int from = whence & ~AVSEEK_FORCE;
    const qint64 base = from == SEEK_SET ? 0 : from == SEEK_CUR ? input.m_offset : size;
    if (offset < -base || offset > std::numeric_limits<qint64>::max() - base) {
        return AVERROR(EINVAL);
    }
    input.m_offset = base + offset;
    return input.m_offset;
}

int ClipInput::askStopped(void* self)
{
    return static_cast<const ClipInput*>(self)->m_stopped() ? 1 : 0;
}

static int refuseToOpen(AVFormatContext* /*container*/, AVIOContext** /*io*/, const char* /*url*/,
                        int /*flags*/, AVDictionary** /*options*/)
{
    return AVERROR(EPERM);
}

// As the player opens it: "advanced_editlist" decides where a cut clip's second 0 is.
static AVDictionary* containerOptions(const char* formats)
{
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", formats, 0);
    av_dict_set(&options, "protocol_whitelist", "", 0);
    av_dict_set(&options, "advanced_editlist", "0", 0);
    av_dict_set(&options, "enable_drefs", "0", 0);
    return options;
}

int ClipInput::openContainer(const QByteArray& name, const char* formats)
{
    auto* buffer = static_cast<unsigned char*>(av_malloc(kBufferBytes));
    m_io.reset(avio_alloc_context(buffer, kBufferBytes, 0, this, readBytes, nullptr, seekBytes));
    AVFormatContext* container = avformat_alloc_context();
    if (!m_io || container == nullptr) {
        avformat_free_context(container);
        return AVERROR(ENOMEM);
    }
    container->pb = m_io.get();
    container->flags |= AVFMT_FLAG_CUSTOM_IO;
    container->io_open = refuseToOpen;
    container->interrupt_callback = {askStopped, this};
    AVDictionary* options = containerOptions(formats);
    const int result = avformat_open_input(&container, name.constData(), nullptr, &options);
    av_dict_free(&options);
    m_container.reset(container); // null when it could not be opened
    return result;
}

// These containers say at once what is in them, and the player counts their time from 0 whatever
// their packets begin with. In all others it counts from the first packet.
static bool tellsAtOnce(const AVFormatContext& container)
{
    const char* name = container.iformat->name;
    return std::strstr(name, "mp4") != nullptr || std::strstr(name, "matroska") != nullptr;
}

int ClipInput::readStreams()
{
    std::vector<AVDictionary*> options(m_container->nb_streams, nullptr);
    for (AVDictionary*& each : options) {
        av_dict_set(&each, "threads", "1", 0);
        av_dict_set(&each, "max_pixels", kLargestPicture, 0);
        av_dict_set(&each, "max_samples", kLargestSound, 0);
    }
    const int result =
        avformat_find_stream_info(m_container.get(), options.empty() ? nullptr : options.data());
    for (AVDictionary*& each : options) {
        av_dict_free(&each);
    }
    return result;
}

int ClipInput::findStreams()
{
    if (tellsAtOnce(*m_container)) {
        return 0;
    }
    const int result = readStreams();
    if (m_container->start_time != AV_NOPTS_VALUE) {
        m_start = static_cast<double>(m_container->start_time) / AV_TIME_BASE;
    }
    return result;
}

std::unique_ptr<ClipInput> ClipInput::open(std::unique_ptr<ByteSource> bytes, const QString& name,
                                           const char* formats, Stopped stopped, QString& error)
{
    if (!bytes) {
        error = QStringLiteral("not a file");
        return nullptr;
    }
    // Only what speaks to a terminal goes by this; the player has a listener of its own.
    av_log_set_level(AV_LOG_QUIET);
    std::unique_ptr<ClipInput> input(new ClipInput(std::move(bytes), std::move(stopped)));
    int result = input->openContainer(name.toUtf8(), formats);
    result = result < 0 ? result : input->findStreams();
    if (result < 0) {
        error = mediaErrorText(result);
        return nullptr;
    }
    return input;
}

bool ClipInput::readDetails()
{
    return !tellsAtOnce(*m_container) || readStreams() >= 0;
}

bool ClipInput::readPacket(AVPacket& packet)
{
    av_packet_unref(&packet);
    while (!m_stopped() && m_packetsLeft-- > 0) {
        const int result = av_read_frame(m_container.get(), &packet);
        if (result != AVERROR(EAGAIN)) {
            return result >= 0;
        }
    }
    return false;
}

void ClipInput::readOnly(const std::function<bool(int)>& isWanted)
{
    for (unsigned i = 0; i < m_container->nb_streams; ++i) {
        m_container->streams[i]->discard =
            isWanted(static_cast<int>(i)) ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

DecoderPointer decoderOf(const AVStream& stream)
{
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    DecoderPointer decoder(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0) {
        return nullptr;
    }
    decoder->pkt_timebase = stream.time_base;
    decoder->thread_count = 1;
    av_opt_set(decoder.get(), "max_samples", kLargestSound, 0);
    return avcodec_open2(decoder.get(), codec, nullptr) >= 0 ? std::move(decoder) : nullptr;
}

} // namespace orvanta
