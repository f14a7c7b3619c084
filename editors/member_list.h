// The member entries of the group editor: path + "{}" + text + "{}" + picture.
#pragma once

#include "editors/entry_list.h"

#include <vector>

namespace orvanta {

/// The three boxes of the group editor.
struct MemberFields
{
    QString path;
    QString text;
    QString picture;
    friend bool operator==(const MemberFields& a, const MemberFields& b) = default;
};

[[nodiscard]] QString memberEntry(const MemberFields& fields);

/// The boxes of a packet file that is being added: no picture yet.
[[nodiscard]] MemberFields fieldsOfFile(const QString& folder, const QString& name);

/// What the boxes show after a click on an entry. An entry of two fields changes the path alone;
/// text and picture stay as they were shown. With no marker nothing changes.
[[nodiscard]] MemberFields shownAfterClick(MemberFields shown, const QString& entry);

/// Text and picture that a group's writer gives to an entry: its own when it has them, otherwise
/// those of the last entry before it that has. The path stays empty here.
struct WrittenFields
{
    MemberFields fields;
    bool areLent = false;  // the entry has a path, but neither text nor picture of its own
    bool areThere = false; // false: there is no entry that could lend them
};
/// For each entry the index of the one whose text and picture it is written with, -1 for none.
[[nodiscard]] std::vector<int> lendersOf(const QStringList& entries);
/// lender: from lendersOf, for this row.
[[nodiscard]] WrittenFields writtenFields(const QStringList& entries, int row, int lender);

/// Empties the list, then adds the members of a group file, two fields each. Raises 13, 9 or 6;
/// those read before stay.
void loadMembers(EntryList& list, const QString& group);

} // namespace orvanta
