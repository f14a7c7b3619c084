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

void loadMembers(EntryList& list, const QString& group)
{
    removeAll(list);
    readGroupEntries(group, list.entries);
}

} // namespace orvanta
