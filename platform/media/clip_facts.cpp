#include "platform/media/clip_facts.h"

#include "core/log.h"
#include "platform/media/clip_input.h"
#include "platform/media/container_formats.h"

#include <QFileInfo>

#include <algorithm>

extern "C" {
#include <libavformat/avformat.h>
}

namespace orvanta {

constexpr unsigned kMostClipChapters = 100000;

static ClipChapter chapterOf(const AVChapter& chapter, double zero)
{
    const double unit = av_q2d(chapter.time_base);
    const AVDictionaryEntry* title = av_dict_get(chapter.metadata, "title", nullptr, 0);
    return {.start = std::max(static_cast<double>(chapter.start) * unit - zero, 0.0),
            .end = std::max(static_cast<double>(chapter.end) * unit - zero, 0.0),
            .title = title != nullptr ? QString::fromUtf8(title->value) : QString()};
}

static std::vector<ClipChapter> allChapters(ClipInput& input)
{
    const AVFormatContext& container = input.container();
    std::vector<ClipChapter> chapters;
    for (unsigned i = 0; i < std::min(container.nb_chapters, kMostClipChapters); ++i) {
        chapters.push_back(chapterOf(*container.chapters[i], input.start()));
    }
    std::stable_sort(chapters.begin(), chapters.end(),
                     [](const auto& a, const auto& b) { return a.start < b.start; });
    return chapters;
}

static bool hasSoundOrPicture(const AVFormatContext& container)
{
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const AVMediaType type = container.streams[i]->codecpar->codec_type;
        if (type == AVMEDIA_TYPE_AUDIO || type == AVMEDIA_TYPE_VIDEO) {
            return true;
        }
    }
    return false;
}

ClipFacts readClipFacts(const QString& path)
{
    QString error;
    const auto input = ClipInput::open(
        fileBytes(path), QFileInfo(path).fileName(), kContainerFormats, [] { return false; },
        error);
    if (!input) {
        qCInfo(logErrors, "no facts of %ls: %ls", qUtf16Printable(path), qUtf16Printable(error));
        return {};
    }
    const int64_t length = input->container().duration;
    return {.isMedia = hasSoundOrPicture(input->container()),
            .seconds = length > 0 ? static_cast<double>(length) / AV_TIME_BASE : 0,
            .start = input->start(),
            .chapters = allChapters(*input)};
}

} // namespace orvanta
