// Group files (.vxg).
#pragma once

#include "core/playlist_entry.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace orvanta {

/// The member has no picture.
inline constexpr char16_t kNoPicture[] = u"{No picture}";

/// Writes a group from entries path{}text{}picture. Text and picture are carried over from the
/// entry before when an entry has only one marker. Raises 75 at the first failing step.
void writeGroup(const QString& target, const QStringList& entries);

/// The editor's reading: entries path + "{}" + text, added one by one. Raises 13, 9 or 6.
void readGroupEntries(const QString& path, QStringList& entries);

/// Finds the packet file that a member's path text means; empty when there is none.
using FindMember = std::function<QString(const QString& pathText)>;

/// The player's reading: grows packets to the member count first, then fills member by member,
/// each with its packet read through readPacketInto. An absent count is 0. Raises 13, 9 or 6, and 7
/// where the packets have more entries than there is room for; what was read before stays. Without
/// find, and for members it does not find, the text is the path, relative texts below the group's
/// folder.
void readGroupInto(std::vector<PlaylistEntry>& packets, const QString& path,
                   const FindMember& find = {}, qsizetype room = kMostEntries);

} // namespace orvanta
