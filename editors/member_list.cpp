#include "editors/member_list.h"

#include "core/group_file.h"
#include "core/paths.h"

namespace orvanta {

QString memberEntry(const MemberFields& fields)
{
    const QString marker = entryMarker();
    return fields.path + marker + fields.text + marker + fields.picture;
}

MemberFields fieldsOfFile(const QString& folder, const QString& name)
{
    return {.path = joinPath(folder, name),
            .text = nameWithoutExtension(name),
            .picture = QStringView(kNoPicture).toString()};
}

MemberFields shownAfterClick(MemberFields shown, const QString& entry)
{
    const QString marker = entryMarker();
    const qsizetype first = entry.indexOf(marker);
    if (first < 0) {
        return shown;
    }
    shown.path = entry.left(first);
    const qsizetype textStart = first + marker.size();
    for (qsizetype at = entry.indexOf(marker, textStart); at >= 0;
         at = entry.indexOf(marker, at + marker.size())) {
        shown.text = entry.mid(textStart, at - textStart);
        shown.picture = entry.mid(at + marker.size());
    }
    return shown;
}

/// Between the first marker and the last; a single one makes a path with nothing behind it.
static bool hasOwnFields(const QString& entry)
{
    const QString marker = entryMarker();
    return entry.lastIndexOf(marker) >= entry.indexOf(marker) + marker.size();
}

std::vector<int> lendersOf(const QStringList& entries)
{
    std::vector<int> lenders;
    lenders.reserve(static_cast<std::size_t>(entries.size()));
    int lender = -1;
    for (const QString& entry : entries) {
        lender = hasOwnFields(entry) ? static_cast<int>(lenders.size()) : lender;
        lenders.push_back(lender);
    }
    return lenders;
}

WrittenFields writtenFields(const QStringList& entries, int row, int lender)
{
    WrittenFields written;
    written.areLent = lender != row && entries.at(row).contains(entryMarker());
    written.areThere = lender >= 0;
    if (written.areThere) {
        const QString marker = entryMarker();
        const QString& entry = entries.at(lender);
        const qsizetype text = entry.indexOf(marker) + marker.size();
        const qsizetype last = entry.lastIndexOf(marker);
        written.fields.text = entry.mid(text, last - text);
        written.fields.picture = entry.mid(last + marker.size());
    }
    return written;
}

void loadMembers(EntryList& list, const QString& group)
{
    removeAll(list);
    readGroupEntries(group, list.entries);
}

} // namespace orvanta
