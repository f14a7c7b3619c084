#include "companions/exchange/list_entry.h"

#include "companions/exchange/end_mark.h"
#include "core/paths.h"
#include "platform/process/path_text.h"

#include <QRegularExpression>
#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString schemeOf(const QString& text)
{
    static const QRegularExpression scheme(
        u"^([A-Za-z][A-Za-z0-9+.-]+):"_s); // two letters at least
    return scheme.match(text).captured(1).toLower();
}

bool isAddressElsewhere(const QString& text)
{
    const QString scheme = schemeOf(text);
    return !scheme.isEmpty() && scheme != u"file" &&
           (text.contains(u"://") || scheme == u"data" || scheme == u"magnet" || scheme == u"urn" ||
            scheme == u"mailto");
}

QString pathOfList(const QString& text)
{
    if (schemeOf(text) != u"file") {
        return text;
    }
    const QUrl address(text);
    const QString path = QUrl::fromPercentEncoding(address.path(QUrl::FullyEncoded).toUtf8());
    if (path.size() > 3 && path[0] == u'/' && hasDriveLetter(path.mid(1))) {
        return path.mid(1).replace(u'/', u'\\'); // written on Windows
    }
    const QString host = address.host();
    return host.isEmpty() || host == u"localhost"
               ? path
               : u"\\\\"_s + host + QString(path).replace(u'/', u'\\');
}

QString titleOfPath(const QString& path)
{
    const QString name = fileNameOfPath(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

/// A part that lies before the last one would never be reached by playing on.
static bool goesOnBehind(const LessonPacket& packet, const ListEntry& entry)
{
    return packet.markedClip == entry.path && !packet.hasEnd &&
           *entry.start >= packet.marks.back().seconds;
}

static bool goesOn(const LessonPacket& packet, const ListEntry& entry, const ListEntry& before)
{
    const bool isPart = entry.start.has_value();
    const bool isSameKind = isPart == !packet.marks.empty();
    const bool isSamePacket =
        entry.packet == before.packet && entry.packet.isNull() == before.packet.isNull();
    return isSamePacket && isSameKind && (!isPart || goesOnBehind(packet, entry));
}

/// The end mark behind the last part.
static void endMarks(LessonPacket& packet, const ListEntry& last)
{
    if (last.start && last.stop && *last.stop > packet.marks.back().seconds) {
        packet.marks.push_back({*last.stop, last.endText});
        packet.hasEnd = true;
    }
}

std::vector<LessonPacket> packetsOfEntries(const std::vector<ListEntry>& entries)
{
    std::vector<LessonPacket> packets;
    const ListEntry* before = nullptr;
    for (const ListEntry& entry : entries) {
        if (before == nullptr || !goesOn(packets.back(), entry, *before)) {
            if (before != nullptr) {
                endMarks(packets.back(), *before);
            }
            packets.push_back({.title = entry.packet});
        }
        LessonPacket& packet = packets.back();
        if (entry.start) {
            packet.markedClip = entry.path;
            packet.marks.push_back({*entry.start, entry.text});
        } else {
            packet.clips.push_back({entry.path, entry.text});
        }
        if (!entry.endText.isNull()) {
            endMarks(packet, entry);
        }
        before = &entry;
    }
    if (before != nullptr && !packets.back().hasEnd) {
        endMarks(packets.back(), *before);
    }
    return packets;
}

static void appendParts(std::vector<ListEntry>& entries, const LessonPacket& packet,
                        const QString& title)
{
    for (const MarkSpan& span : spansOf(packet)) {
        const bool hasStop = span.end > span.start;
        entries.push_back({.path = packet.markedClip,
                           .text = span.text,
                           .packet = title,
                           .start = span.start,
                           .stop = hasStop ? std::optional(span.end) : std::nullopt,
                           .endText = {}});
    }
    if (packet.hasEnd && !entries.empty() && packet.marks.size() > 1) {
        entries.back().endText = endTextOf(packet);
    }
}

std::vector<ListEntry> entriesOf(const Lesson& lesson)
{
    std::vector<ListEntry> entries;
    for (const LessonPacket& packet : lesson.packets) {
        const QString title = lesson.packets.size() > 1 ? u""_s + packet.title : QString();
        for (const LessonClip& clip : packet.clips) {
            entries.push_back({.path = clip.path, .text = clip.text, .packet = title});
        }
        appendParts(entries, packet, title);
    }
    return entries;
}

} // namespace orvanta
