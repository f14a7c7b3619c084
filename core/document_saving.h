// Packets and groups saved as they are open, over an earlier document whose other keys stay.
#pragma once

#include "core/playlist_entry.h"

#include <QString>

#include <vector>

namespace orvanta {

/// Writes the packet to target, whole or not at all. Sections and keys of the document at former
/// that mean nothing to the program stay, those of a line with the line; an empty or absent former
/// has none. Raises 75.
void savePacket(const PlaylistEntry& packet, const QString& target, const QString& former);

/// A packet of a group, as the group names it.
struct GroupMember
{
    QString path; // as it is to be written
    QString text;
    QString picture;
};

/// The same for a group. Raises 75, and 6 over 32767 members.
void saveGroup(const std::vector<GroupMember>& members, const QString& target,
               const QString& former);

/// The text as a document gives it back after it was written there: one line, without outer blanks
/// and one pair of outer quotes, at most 2047 characters.
[[nodiscard]] QString asDocumentHolds(const QString& text);

} // namespace orvanta
