#include "companions/exchange/exporting.h"

#include "companions/exchange/ffmetadata.h"
#include "companions/exchange/lesson_documents.h"
#include "companions/exchange/m3u.h"
#include "companions/exchange/matroska_chapters.h"
#include "companions/exchange/webvtt.h"
#include "companions/exchange/xspf.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Packets that have spans: an end mark alone says nothing.
static bool hasSpans(const LessonPacket& packet)
{
    return packet.marks.size() > 1;
}

static QString numberedTarget(const QString& target, std::size_t number, std::size_t count)
{
    const QFileInfo info(target);
    const auto digits = static_cast<int>(QString::number(count).size());
    const QString name = u"%1 %2"_s.arg(info.completeBaseName())
                             .arg(static_cast<int>(number), digits, 10, QLatin1Char('0'));
    return info.path() + u'/' + name + (info.suffix().isEmpty() ? QString() : u'.' + info.suffix());
}

static void planMarks(ExportPlan& plan, const ExportOrder& order, const QString& target)
{
    std::vector<std::size_t> packets;
    for (std::size_t i = 0; i < plan.lesson.packets.size(); ++i) {
        if (hasSpans(plan.lesson.packets[i])) {
            packets.push_back(i);
        } else {
            plan.leftOut.push_back({order.lesson, {u"noMarks", 0, plan.lesson.packets[i].title}});
        }
    }
    for (const std::size_t packet : packets) {
        const std::size_t number = plan.parts.size() + 1;
        plan.parts.push_back(
            {packets.size() == 1 ? target : numberedTarget(target, number, packets.size()),
             packet});
    }
}

/// Below the list's folder the clips are named relative to it, so that both can travel.
static void makeRelative(Lesson& lesson, const QDir& folder)
{
    const auto shorten = [&](QString& path) {
        const QString relative = folder.relativeFilePath(path);
        path = path.startsWith(u'/') && !relative.startsWith(u"../"_s) ? relative : path;
    };
    for (LessonPacket& packet : lesson.packets) {
        shorten(packet.markedClip);
        for (LessonClip& clip : packet.clips) {
            shorten(clip.path);
        }
    }
}

static void planList(ExportPlan& plan, const ExportOrder& order, const QString& target)
{
    bool isAnyThere = false;
    for (const LessonPacket& packet : plan.lesson.packets) {
        const bool hasLines = !packet.clips.empty() || hasSpans(packet);
        isAnyThere = isAnyThere || hasLines;
        if (!hasLines) {
            plan.leftOut.push_back({order.lesson, {u"noLines", 0, packet.title}});
        }
    }
    if (isAnyThere) {
        plan.parts.push_back({target, 0});
    }
    makeRelative(plan.lesson, QFileInfo(target).dir());
}

static bool isSameFile(const QString& one, const QString& other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath();
}

static bool isOfLesson(const QString& target, const Lesson& lesson)
{
    const auto isOfPacket = [&](const LessonPacket& packet) {
        const bool isClip =
            std::any_of(packet.clips.begin(), packet.clips.end(),
                        [&](const LessonClip& clip) { return isSameFile(target, clip.path); });
        return isClip || isSameFile(target, packet.markedClip) ||
               isSameFile(target, packet.picture);
    };
    return std::any_of(lesson.packets.begin(), lesson.packets.end(), isOfPacket);
}

/// What it would replace must not be what it is made of.
static bool refusesTargets(ExportPlan& plan, const ExportOrder& order, const Lesson& whole)
{
    for (const ExportPart& part : plan.parts) {
        const QString ending = QFileInfo(part.target).suffix().toLower();
        if (ending == u"vxl" || ending == u"vxg" || isSameFile(part.target, order.lesson) ||
            isOfLesson(part.target, whole)) {
            plan.failures.push_back({part.target, {u"ownFile", 0, {}}});
            return true;
        }
    }
    return false;
}

ExportPlan planExport(const ExportOrder& order)
{
    ExportPlan plan;
    ImportedLesson read = readLessonDocument(order.lesson);
    plan.lesson = std::move(read.lesson);
    plan.leftOut = std::move(read.leftOut);
    const Lesson whole = plan.lesson;
    if (whole.packets.empty()) {
        plan.failures.push_back({order.lesson, {u"noLesson", 0, {}}});
        return plan;
    }
    const QString target = QFileInfo(order.target).absoluteFilePath();
    if (exportFormatRow(order.format).isList) {
        planList(plan, order, target);
    } else {
        planMarks(plan, order, target);
    }
    if (plan.parts.empty()) {
        plan.failures.push_back({order.lesson, {u"nothingToExport", 0, {}}});
    } else if (refusesTargets(plan, order, whole)) {
        plan.parts.clear();
    }
    return plan;
}

QByteArray exportedBytes(const ExportPlan& plan, const ExportPart& part, ExportFormat format)
{
    const LessonPacket& packet = plan.lesson.packets[part.packet];
    switch (format) {
    case ExportFormat::M3u8:
        return m3uText(plan.lesson).toUtf8();
    case ExportFormat::Xspf:
        return xspfText(plan.lesson);
    case ExportFormat::WebVtt:
        return webVttText(packet).toUtf8();
    case ExportFormat::FfMetadata:
        return ffMetadataText(packet).toUtf8();
    case ExportFormat::MatroskaChapters:
        return matroskaChaptersText(packet);
    case ExportFormat::ClipWithChapters:
        break;
    }
    return {};
}

bool writeWholeFile(const QString& target, const QByteArray& bytes)
{
    QSaveFile file(target);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace orvanta
