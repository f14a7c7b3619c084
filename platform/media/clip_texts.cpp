#include "platform/media/clip_texts.h"

#include "core/foreign_text.h"
#include "core/log.h"
#include "platform/media/clip_input.h"
#include "platform/media/container_formats.h"
#include "platform/media/subtitle_file.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr std::size_t kMostChapters = 10000;
constexpr std::size_t kMostLines = 100000; // of a track
constexpr qsizetype kLongestText = 1000;   // characters
constexpr double kMillisecond = 0.001;

static QString textOf(const AVDictionary* facts, const char* name)
{
    const AVDictionaryEntry* entry = av_dict_get(facts, name, nullptr, 0);
    return entry != nullptr ? QString::fromUtf8(entry->value).simplified().left(kLongestText)
                            : QString();
}

static std::vector<SuggestedMark> chaptersOf(ClipInput& input)
{
    const AVFormatContext& container = input.container();
    std::vector<SuggestedMark> chapters;
    const std::size_t count = std::min<std::size_t>(container.nb_chapters, kMostChapters);
    for (std::size_t i = 0; i < count; ++i) {
        const AVChapter& chapter = *container.chapters[i];
        const double start = static_cast<double>(chapter.start) * av_q2d(chapter.time_base);
        chapters.push_back(
            {std::max(start - input.start(), 0.0), textOf(chapter.metadata, "title")});
    }
    std::stable_sort(chapters.begin(), chapters.end(),
                     [](const auto& a, const auto& b) { return a.seconds < b.seconds; });
    return chapters;
}

static bool isText(const AVStream& stream)
{
    const AVCodecDescriptor* codec = avcodec_descriptor_get(stream.codecpar->codec_id);
    return stream.codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE && codec != nullptr &&
           (codec->props & AV_CODEC_PROP_TEXT_SUB) != 0;
}

namespace {

/// A track while it is read.
struct OpenTrack
{
    DecoderPointer decoder;
    SubtitleTrack track;
};

using OpenTracks = std::map<int, OpenTrack>; // by the stream's number

} // namespace

static OpenTracks openTracks(const AVFormatContext& container)
{
    OpenTracks tracks;
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const AVStream& stream = *container.streams[i];
        DecoderPointer decoder = isText(stream) ? decoderOf(stream) : nullptr;
        if (decoder) {
            tracks[static_cast<int>(i)] = {std::move(decoder),
                                           {.title = textOf(stream.metadata, "title"),
                                            .language = textOf(stream.metadata, "language"),
                                            .lines = {}}};
        }
    }
    return tracks;
}

static QString shownText(const AVSubtitle& subtitle)
{
    QStringList texts;
    for (unsigned i = 0; i < subtitle.num_rects; ++i) {
        const char* event = subtitle.rects[i]->ass;
        texts += event != nullptr ? textOfEvent(QString::fromUtf8(event)) : QString();
    }
    return texts.join(u' ').simplified().left(kLongestText);
}

static double secondsShown(const AVPacket& packet, const AVStream& stream)
{
    return static_cast<double>(std::max<qint64>(packet.duration, 0)) * av_q2d(stream.time_base);
}

static void takeLine(OpenTrack& open, AVPacket& packet, const AVStream& stream, double zero)
{
    AVSubtitle subtitle = {};
    int got = 0;
    if (packet.pts == AV_NOPTS_VALUE || open.track.lines.size() >= kMostLines ||
        avcodec_decode_subtitle2(open.decoder.get(), &subtitle, &got, &packet) < 0 || got == 0) {
        return;
    }
    const double start = static_cast<double>(packet.pts) * av_q2d(stream.time_base) - zero +
                         subtitle.start_display_time * kMillisecond;
    const QString text = shownText(subtitle);
    if (!text.isEmpty() && start >= 0) {
        open.track.lines.push_back({start, start + secondsShown(packet, stream), text});
    }
    avsubtitle_free(&subtitle);
}

/// zero: the packets' time that is the player's second 0.
static std::vector<SubtitleTrack> tracksIn(ClipInput& input, double zero)
{
    OpenTracks tracks = openTracks(input.container());
    if (tracks.empty()) {
        return {}; // nothing to read the whole clip for
    }
    input.readOnly([&](int stream) { return tracks.contains(stream); });
    const PacketPointer packet(av_packet_alloc());
    while (packet && input.readPacket(*packet)) {
        const auto found = tracks.find(packet->stream_index);
        if (found != tracks.end()) {
            takeLine(found->second, *packet, *input.container().streams[found->first], zero);
        }
    }
    std::vector<SubtitleTrack> read;
    for (auto& [number, open] : tracks) {
        open.track.lines = orderedLines(std::move(open.track.lines));
        if (!open.track.lines.empty()) {
            read.push_back(std::move(open.track));
        }
    }
    return read;
}

static QByteArray asUtf8(const QByteArray& bytes, const std::shared_ptr<const CodePage>& page)
{
    return isForeignText(bytes) ? foreignText(bytes, page).toUtf8() : bytes;
}

std::vector<SubtitleTrack> readSubtitleFile(const QString& file,
                                            const std::shared_ptr<const CodePage>& page,
                                            const std::function<bool()>& stopped)
{
    const Descriptor copy = copyOfSubtitles(file);
    const std::optional<QByteArray> bytes = copy.isOpen() ? copy.readAll() : std::nullopt;
    if (!bytes) {
        return {};
    }
    QString error;
    const QString name = QFileInfo(file).fileName();
    const std::unique_ptr<ClipInput> input =
        ClipInput::open(memoryBytes(asUtf8(*bytes, page)), name, kSubtitleFormats, stopped, error);
    if (!input) {
        qCInfo(logErrors, "no subtitles in %ls: %ls", qUtf16Printable(file),
               qUtf16Printable(error));
        return {};
    }
    std::vector<SubtitleTrack> tracks = tracksIn(*input, 0); // not from its first line
    for (SubtitleTrack& track : tracks) {
        track.title = name;
    }
    return tracks;
}

static QStringList filesBeside(const QString& path)
{
    const QFileInfo clip(path);
    QStringList files;
    for (const QString& ending : {u".srt"_s, u".vtt"_s, u".ass"_s}) {
        const QString file = clip.path() + u'/' + clip.completeBaseName() + ending;
        files += isSubtitleFile(file) ? QStringList{file} : QStringList{};
    }
    return files;
}

ClipTexts readClipTexts(const QString& path, const std::shared_ptr<const CodePage>& page,
                        const std::function<bool()>& stopped)
{
    ClipTexts texts;
    QString error;
    if (const auto input = ClipInput::open(fileBytes(path), QFileInfo(path).fileName(),
                                           kContainerFormats, stopped, error)) {
        texts.chapters = chaptersOf(*input);
        texts.subtitles = tracksIn(*input, input->start());
    } else if (!stopped()) {
        qCInfo(logErrors, "no chapters and subtitles of %ls: %ls", qUtf16Printable(path),
               qUtf16Printable(error));
    }
    for (const QString& file : filesBeside(path)) {
        std::vector<SubtitleTrack> more = readSubtitleFile(file, page, stopped);
        std::move(more.begin(), more.end(), std::back_inserter(texts.subtitles));
    }
    return texts;
}

} // namespace orvanta
