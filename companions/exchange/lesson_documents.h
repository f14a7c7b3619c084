// Lessons as packets and groups on the disk.
#pragma once

#include "companions/exchange/importing.h"

namespace orvanta {

/// Writes one packet, or a group with its packets beside it: "Name.vxg", "Name 1.vxl", … Files
/// below the target's folder are named relative to it. Nothing new stays when something cannot be
/// written. target: an absolute path; its ending says which it is to be. Raises 75, and 6 for more
/// packets than a group holds.
void writeLesson(const Lesson& lesson, const QString& target);

/// The name under which a lesson is proposed in a folder: its title with the ending of what it is,
/// and a number where there is such a file already.
[[nodiscard]] QString proposedDocument(const Lesson& lesson, const QString& folder);

/// The text as it has to be written to be read again: a pair of outer quotes would be lost.
[[nodiscard]] QString writtenText(const QString& text);

/// Reads a packet or a group. Paths of what is found are whole. A line whose time is no number is
/// left out. No packets: it could not be read.
[[nodiscard]] ImportedLesson readLessonDocument(const QString& document);

} // namespace orvanta
