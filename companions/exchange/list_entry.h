// What lists of clips have in common: addresses, and marks as starts and stops within a clip.
#pragma once

#include "companions/exchange/lesson.h"

#include <QString>

#include <optional>

namespace orvanta {

/// One entry of a list.
struct ListEntry
{
    QString path = {};
    QString text = {};
    QString packet = {};              // the packet's title; null: of no certain packet
    std::optional<double> start = {}; // seconds; the entry is a part of its clip
    std::optional<double> stop = {};
    QString endText = {}; // of the end mark behind it; null without one
};

/// "http://host/a.mp3" and its kind, but neither "file:" nor "C:\a.mp3".
[[nodiscard]] bool isAddressElsewhere(const QString& text);
/// The path in a list: a "file:" address becomes its path, all else stays as it is.
[[nodiscard]] QString pathOfList(const QString& text);
/// The last part without its ending, for an entry that has no title.
[[nodiscard]] QString titleOfPath(const QString& path);

/// Entries as packets: a new one begins where the packet's title changes, and where parts of a clip
/// begin, end, or are of another clip.
[[nodiscard]] std::vector<LessonPacket> packetsOfEntries(const std::vector<ListEntry>& entries);
/// The entries of a lesson. Packets are named only where there are several. A mark without an end
/// behind it has no stop.
[[nodiscard]] std::vector<ListEntry> entriesOf(const Lesson& lesson);

} // namespace orvanta
