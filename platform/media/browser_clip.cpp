#include "platform/media/browser_clip.h"

#include "platform/media/clip_input.h"
#include "platform/media/container_formats.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace orvanta {

using namespace Qt::StringLiterals;

template <std::size_t Count>
static bool isOneOf(AVCodecID codec, const std::array<AVCodecID, Count>& codecs)
{
    return std::ranges::find(codecs, codec) != codecs.end();
}

static bool hasName(const AVFormatContext& container, const QString& name)
{
    return QString::fromLatin1(container.iformat->name).split(u',').contains(name);
}

/// The brand of files of QuickTime, which not every browser takes for the MP4 that they nearly are.
static bool isQuickTime(const AVFormatContext& container)
{
    const AVDictionaryEntry* brand = av_dict_get(container.metadata, "major_brand", nullptr, 0);
    return brand == nullptr || QString::fromLatin1(brand->value).trimmed() == u"qt";
}

/// Matroska is WebM only by name: the libraries do not tell them apart.
static BrowserContainer containerOf(const AVFormatContext& container, const QString& suffix)
{
    if (hasName(container, u"mp4"_s)) {
        return isQuickTime(container) ? BrowserContainer::None : BrowserContainer::Mp4;
    }
    if (hasName(container, u"webm"_s)) {
        return suffix == u"webm" ? BrowserContainer::Webm : BrowserContainer::None;
    }
    for (const auto& name : {u"ogg"_s, u"mp3"_s, u"wav"_s, u"flac"_s, u"aac"_s}) {
        if (hasName(container, name)) {
            return BrowserContainer::Sound;
        }
    }
    return BrowserContainer::None;
}

/// Eight bits for each colour, at half resolution: what every decoder knows, those in hardware too.
static bool isPlainPicture(const AVCodecParameters& stream)
{
    return stream.format == AV_PIX_FMT_YUV420P || stream.format == AV_PIX_FMT_YUVJ420P;
}

static BrowserContainer pictureGoesInto(const AVCodecParameters& stream)
{
    constexpr std::array kWebm{AV_CODEC_ID_VP8, AV_CODEC_ID_VP9, AV_CODEC_ID_AV1};
    if (!isPlainPicture(stream)) {
        return BrowserContainer::None;
    }
    if (stream.codec_id == AV_CODEC_ID_H264) {
        return BrowserContainer::Mp4;
    }
    return isOneOf(stream.codec_id, kWebm) ? BrowserContainer::Webm : BrowserContainer::None;
}

constexpr int kMostChannels = 2; // more are mixed down: the browsers do not agree about them

static bool soundGoesInto(const AVCodecParameters& stream, BrowserContainer container)
{
    constexpr std::array kMp4{AV_CODEC_ID_AAC, AV_CODEC_ID_MP3};
    constexpr std::array kWebm{AV_CODEC_ID_OPUS, AV_CODEC_ID_VORBIS};
    if (stream.ch_layout.nb_channels > kMostChannels) {
        return false;
    }
    return container == BrowserContainer::Mp4 ? isOneOf(stream.codec_id, kMp4)
                                              : isOneOf(stream.codec_id, kWebm);
}

static bool soundPlaysIn(const AVCodecParameters& stream, BrowserContainer container)
{
    constexpr std::array kBare{AV_CODEC_ID_MP3,      AV_CODEC_ID_OPUS, AV_CODEC_ID_VORBIS,
                               AV_CODEC_ID_FLAC,     AV_CODEC_ID_AAC,  AV_CODEC_ID_PCM_U8,
                               AV_CODEC_ID_PCM_S16LE};
    return container == BrowserContainer::Sound
               ? isOneOf(stream.codec_id, kBare) && stream.ch_layout.nb_channels <= kMostChannels
               : container != BrowserContainer::None && soundGoesInto(stream, container);
}

bool BrowserClip::isPlayable() const
{
    const bool pictureFits = !hasPicture() || pictureGoesInto == container;
    const bool soundFits = sound < 0 || soundPlaysHere;
    return container != BrowserContainer::None && pictureFits && soundFits &&
           (hasPicture() || sound >= 0);
}

/// A cover is no picture that moves.
static int findPicture(AVFormatContext& container)
{
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const AVStream& stream = *container.streams[i];
        if (stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
            (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0) {
            return int(i);
        }
    }
    return -1;
}

static void judgeStreams(BrowserClip& clip, const AVFormatContext& container)
{
    if (clip.picture >= 0) {
        clip.pictureGoesInto = pictureGoesInto(*container.streams[clip.picture]->codecpar);
    }
    if (clip.sound >= 0) {
        const AVCodecParameters& sound = *container.streams[clip.sound]->codecpar;
        clip.soundGoesIntoMp4 = soundGoesInto(sound, BrowserContainer::Mp4);
        clip.soundGoesIntoWebm = soundGoesInto(sound, BrowserContainer::Webm);
        clip.soundPlaysHere = soundPlaysIn(sound, clip.container);
    }
}

BrowserClip browserClip(const QString& path, const std::function<bool()>& stopped)
{
    BrowserClip clip;
    const QFileInfo file(path);
    const auto input =
        ClipInput::open(fileBytes(path), file.fileName(), kContainerFormats, stopped, clip.error);
    if (!input || !input->readDetails()) {
        return clip;
    }
    AVFormatContext& container = input->container();
    clip.isOpened = true;
    clip.container = containerOf(container, file.suffix().toLower());
    clip.picture = findPicture(container);
    clip.sound =
        std::max(av_find_best_stream(&container, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0), -1);
    clip.seconds = container.duration > 0 ? double(container.duration) / AV_TIME_BASE : 0;
    judgeStreams(clip, container);
    return clip;
}

} // namespace orvanta
