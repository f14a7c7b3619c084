#include "companions/exchange/importing.h"

#include "companions/exchange/cue.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/import_format.h"
#include "companions/exchange/labels.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/matroska_chapters.h"
#include "companions/exchange/pls.h"
#include "companions/exchange/source_file.h"
#include "companions/exchange/time_list.h"
#include "companions/exchange/webvtt.h"
#include "companions/exchange/xspf.h"
#include "core/foreign_text.h"
#include "core/ini_document.h"
#include "core/ini_encoding.h"
#include "platform/media/clip_facts.h"
#include "platform/media/clip_texts.h"
#include "platform/process/media_locator.h"
#include "platform/process/path_text.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

static ReadLesson failed(const char16_t* what, const QString& detail = {})
{
    ReadLesson read;
    read.failure = Remark{what, 0, detail};
    return read;
}

static ReadLesson lessonOfSpans(const std::vector<MarkSpan>& spans, const char16_t* whenEmpty)
{
    ReadLesson read;
    if (spans.empty()) {
        return failed(whenEmpty);
    }
    read.lesson.packets.push_back(packetOfSpans(spans, {}));
    return read;
}

static ReadLesson readSubtitleSpans(const QString& file)
{
    const auto tracks = readSubtitleFile(file, CodePage::current(), [] { return false; });
    std::vector<MarkSpan> spans;
    for (const SubtitleLine& line :
         tracks.empty() ? std::vector<SubtitleLine>() : tracks[0].lines) {
        spans.push_back({line.start, line.end, line.text});
    }
    return lessonOfSpans(spans, u"nothingIn");
}

static ReadLesson readMedia(const QString& file)
{
    const ClipFacts facts = readClipFacts(file);
    std::vector<MarkSpan> spans;
    for (const ClipChapter& chapter : facts.chapters) {
        spans.push_back({chapter.start, chapter.end, chapter.title});
    }
    ReadLesson read = lessonOfSpans(spans, facts.isMedia ? u"noChapters" : u"unknownKind");
    if (!read.failure) {
        read.lesson.packets.front().markedClip = file;
    }
    return read;
}

static ReadLesson readText(ImportFormat format, const QByteArray& bytes)
{
    const QString text = foreignText(bytes, CodePage::current());
    switch (format) {
    case ImportFormat::M3u:
        return readM3u(text);
    case ImportFormat::Pls:
        return readPls(text);
    case ImportFormat::Xspf:
        return readXspf(bytes);
    case ImportFormat::Cue:
        return readCue(text);
    case ImportFormat::WebVtt:
        return readWebVtt(text);
    case ImportFormat::FfMetadata:
        return readFfMetadata(text);
    case ImportFormat::MatroskaChapters:
        return readMatroskaChapters(bytes);
    case ImportFormat::Labels:
        return readLabels(text);
    case ImportFormat::TimeList:
        return readTimeList(text);
    case ImportFormat::Subtitles:
    case ImportFormat::Media:
        break;
    }
    return {};
}

static ReadLesson readFile(const QString& file)
{
    constexpr qint64 kLookedAtBytes = 1 << 16;
    const std::optional<SourceBytes> beginning = sourceBytes(file, kLookedAtBytes);
    if (!beginning) {
        return failed(u"unreadable");
    }
    const ImportFormat format = importFormatOf(file, beginning->bytes);
    if (format == ImportFormat::Media) {
        return readMedia(file);
    }
    if (format == ImportFormat::Subtitles) {
        return readSubtitleSpans(file);
    }
    const std::optional<SourceBytes> source = sourceBytes(file);
    return !source            ? failed(u"unreadable")
           : !source->isWhole ? failed(u"tooLarge")
                              : readText(format, source->bytes);
}

static bool isListOrLesson(const QString& path)
{
    static const QStringList kEndings = {u"m3u"_s, u"m3u8"_s, u"pls"_s, u"xspf"_s,
                                         u"cue"_s, u"vxl"_s,  u"vxg"_s};
    return kEndings.contains(QFileInfo(path).suffix().toLower());
}

namespace {

/// Brings the lesson of one file to where its clips are.
class LessonFinisher
{
public:
    LessonFinisher(const ImportOrder& order, const QString& file, ImportedLesson& imported)
        : m_order(order),
          m_file(file),
          m_folder(QFileInfo(file).absolutePath()),
          m_imported(imported)
    {}

    void finish(LessonPacket packet, const QString& otherwiseTitled)
    {
        packet.title = packet.title.isEmpty() ? otherwiseTitled : packet.title;
        sayWhatIsCut(packet);
        if (packet.marks.empty()) {
            findClips(packet);
        } else if (!findMarkedClip(packet)) {
            return;
        }
        if (!packet.clips.empty() || !packet.marks.empty()) {
            for (LessonPacket& fitting : packetsThatFit(std::move(packet))) {
                m_imported.lesson.packets.push_back(std::move(fitting));
            }
        }
    }

private:
    void sayWhatIsCut(const LessonPacket& packet)
    {
        const auto look = [&](const QString& text) {
            if (text.toUcs4().size() > kIniValueLimit) {
                m_imported.leftOut.push_back({m_file, {u"longText", 0, text}});
            }
        };
        for (const LessonClip& clip : packet.clips) {
            look(clip.text);
        }
        for (const LessonMark& mark : packet.marks) {
            look(mark.text);
        }
    }

    /// The whole path of the file that a text means; the text itself where there is none.
    [[nodiscard]] FoundFile found(const QString& text) const
    {
        const FoundFile asWritten = findMediaFile(text, {.packet = m_folder});
        const QString decoded = QUrl::fromPercentEncoding(text.toUtf8());
        return asWritten.finding == Finding::Nowhere && decoded != text
                   ? findMediaFile(decoded, {.packet = m_folder})
                   : asWritten;
    }

    /// Below the list where it is said to be there, so that the lesson may lie elsewhere.
    [[nodiscard]] QString wholePath(const QString& text, const FoundFile& place) const
    {
        if (!place.file.isEmpty()) {
            return place.file;
        }
        const PathText parts = pathTextOf(text);
        return parts.root == PathRoot::Folder
                   ? QDir(m_folder).absoluteFilePath(parts.parts.join(u'/'))
                   : text;
    }

    void findClips(LessonPacket& packet)
    {
        std::vector<LessonClip> clips;
        for (LessonClip& clip : packet.clips) {
            const FoundFile place = found(clip.path);
            if (!canNameAFile(clip.path) || place.finding == Finding::Refused ||
                isListOrLesson(clip.path)) {
                m_imported.leftOut.push_back({m_file, {u"noClip", 0, clip.path}});
                continue;
            }
            clip.path = wholePath(clip.path, place);
            clips.push_back(std::move(clip));
        }
        packet.clips = std::move(clips);
    }

    /// A clip of the same name beside the file.
    [[nodiscard]] QString clipBeside() const
    {
        const QString base = QFileInfo(m_file).completeBaseName();
        for (const QFileInfo& other : QDir(m_folder).entryInfoList(QDir::Files, QDir::Name)) {
            if (other.completeBaseName() == base &&
                other.filePath() != QFileInfo(m_file).absoluteFilePath() &&
                readClipFacts(other.absoluteFilePath()).isMedia) {
                return other.absoluteFilePath();
            }
        }
        return {};
    }

    [[nodiscard]] bool findMarkedClip(LessonPacket& packet)
    {
        if (packet.markedClip.isEmpty()) {
            packet.markedClip =
                m_order.clip.isEmpty() ? clipBeside() : QFileInfo(m_order.clip).absoluteFilePath();
        } else {
            packet.markedClip = wholePath(packet.markedClip, found(packet.markedClip));
        }
        if (packet.markedClip.isEmpty()) {
            m_imported.failures.push_back({m_file, {u"wantsClip", 0, {}}});
            m_imported.wantsClip = true;
            return false;
        }
        endAt(packet, readClipFacts(packet.markedClip).seconds);
        return true;
    }

    /// Without an end of its own the lesson ends with its clip. Nothing is lost when nobody knows
    /// where that is: then the end mark comes too late rather than too early.
    void endAt(LessonPacket& packet, double clipSeconds)
    {
        constexpr double kHundredth = 0.01;
        constexpr double kLate = 3600;
        const double end = std::floor(clipSeconds / kHundredth) * kHundredth;
        const double last = packet.marks.back().seconds;
        if (packet.hasEnd) {
            LessonMark& mark = packet.marks.back();
            const double before = packet.marks.size() > 1 ? packet.marks.end()[-2].seconds : 0;
            mark.seconds = end > before ? std::min(mark.seconds, end) : mark.seconds;
        } else if (clipSeconds <= 0) {
            m_imported.leftOut.push_back({m_file, {u"noLength", 0, packet.markedClip}});
            packet.marks.push_back({last + kLate, QString()});
        } else if (end > last) {
            packet.marks.push_back({end, QString()});
        }
        packet.hasEnd = true;
        QString& text = packet.marks.back().text;
        text = text.isNull() ? m_order.endText : text;
    }

    const ImportOrder& m_order;
    QString m_file;
    QString m_folder;
    ImportedLesson& m_imported;
};

} // namespace

static void importFile(const ImportOrder& order, const QString& file, ImportedLesson& imported)
{
    ReadLesson read = readFile(QFileInfo(file).absoluteFilePath());
    if (read.failure) {
        imported.failures.push_back({file, *read.failure});
        return;
    }
    for (const Remark& remark : read.leftOut) {
        imported.leftOut.push_back({file, remark});
    }
    const QString title =
        read.lesson.title.isEmpty() ? QFileInfo(file).completeBaseName() : read.lesson.title;
    LessonFinisher finisher(order, file, imported);
    int number = 0;
    for (LessonPacket& packet : read.lesson.packets) {
        ++number;
        const bool isOnly = read.lesson.packets.size() == 1;
        finisher.finish(std::move(packet), isOnly ? title : title + u' ' + QString::number(number));
    }
}

ImportedLesson importFiles(const ImportOrder& order)
{
    ImportedLesson imported;
    beginSearches();
    for (const QString& file : order.files) {
        importFile(order, file, imported);
    }
    imported.lesson.title = QFileInfo(order.files.value(0)).completeBaseName();
    return imported;
}

static void appendMarks(std::vector<LessonPacket>& packets, const LessonPacket& whole)
{
    // The first mark of the next packet is the end of this one.
    constexpr std::size_t kStep = kMostInPacket - 1;
    for (std::size_t from = 0; from + 1 < whole.marks.size(); from += kStep) {
        const std::size_t to = std::min(from + kMostInPacket, whole.marks.size());
        LessonPacket part = {.title = whole.title, .markedClip = whole.markedClip, .hasEnd = true};
        part.marks.assign(whole.marks.begin() + static_cast<std::ptrdiff_t>(from),
                          whole.marks.begin() + static_cast<std::ptrdiff_t>(to));
        packets.push_back(std::move(part));
    }
}

static void appendClips(std::vector<LessonPacket>& packets, const LessonPacket& whole)
{
    for (std::size_t from = 0; from < whole.clips.size(); from += kMostInPacket) {
        const std::size_t to = std::min(from + kMostInPacket, whole.clips.size());
        LessonPacket part = {.title = whole.title};
        part.clips.assign(whole.clips.begin() + static_cast<std::ptrdiff_t>(from),
                          whole.clips.begin() + static_cast<std::ptrdiff_t>(to));
        packets.push_back(std::move(part));
    }
}

std::vector<LessonPacket> packetsThatFit(LessonPacket packet)
{
    std::vector<LessonPacket> packets;
    if (packet.marks.size() <= kMostInPacket && packet.clips.size() <= kMostInPacket) {
        packets.push_back(std::move(packet));
        return packets;
    }
    appendMarks(packets, packet);
    appendClips(packets, packet);
    for (std::size_t i = 0; i < packets.size(); ++i) {
        packets[i].title += u' ' + QString::number(i + 1);
    }
    return packets;
}

} // namespace orvanta
