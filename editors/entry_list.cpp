#include "editors/entry_list.h"

#include "core/packet_file.h"
#include "core/paths.h"

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

void makeRoom(EntryList& list)
{
    if (!list.hasSelection()) {
        list.entries.append(QString());
        list.selected = 0;
        return;
    }
    ++list.selected;
    list.entries.insert(list.selected, QString());
}

void rebuildSelected(EntryList& list, const QString& entry)
{
    if (!list.hasSelection()) {
        list.selected = static_cast<int>(list.entries.size());
        list.entries.append(entry);
        return;
    }
    list.entries[list.selected] = entry;
}

void removeSelected(EntryList& list)
{
    if (list.hasSelection()) {
        list.entries.removeAt(list.selected);
        list.selected = -1;
    }
}

void removeAll(EntryList& list)
{
    list = {};
}

static void moveTo(EntryList& list, int place)
{
    list.entries.move(list.selected, place);
    list.selected = place;
}

void moveUp(EntryList& list)
{
    if (list.selected > 0 && list.hasSelection()) {
        moveTo(list, list.selected - 1);
    }
}

void moveDown(EntryList& list)
{
    if (list.hasSelection() && list.selected + 1 < list.entries.size()) {
        moveTo(list, list.selected + 1);
    }
}

ListDifference differenceOf(const QStringList& old, const QStringList& next)
{
    const auto differs = std::mismatch(old.cbegin(), old.cend(), next.cbegin(), next.cend());
    const qsizetype first = differs.first - old.cbegin();
    qsizetype oldEnd = old.size();
    qsizetype newEnd = next.size();
    while (oldEnd > first && newEnd > first && old.at(oldEnd - 1) == next.at(newEnd - 1)) {
        --oldEnd;
        --newEnd;
    }
    return {.first = first, .oldEnd = oldEnd, .newEnd = newEnd};
}

QString entryMarker()
{
    return QStringView(kEntryMarker).toString();
}

MarkerSplit splitAtLastMarker(const QString& entry)
{
    const QString marker = entryMarker();
    const qsizetype at = entry.lastIndexOf(marker);
    if (at < 0) {
        return {};
    }
    return {.found = true, .before = entry.left(at), .after = entry.mid(at + marker.size())};
}

QString nameWithoutExtension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

QStringList entriesOfFiles(const QString& folder, const QStringList& names)
{
    QStringList entries;
    entries.reserve(names.size());
    for (const QString& name : names) {
        entries.append(joinPath(folder, name) + entryMarker() + nameWithoutExtension(name));
    }
    return entries;
}

static bool breaksLine(QChar letter)
{
    switch (letter.unicode()) {
    case u'\0':
    case u'\n':
    case u'\v':
    case u'\f':
    case u'\r':
    case 0x0085: // next line
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

QString onOneLine(QString text)
{
    text.replace(u"\r\n"_s, u" "_s);
    if (std::any_of(text.cbegin(), text.cend(), breaksLine)) {
        std::replace_if(text.begin(), text.end(), breaksLine, QChar(u' '));
    }
    return text;
}

} // namespace orvanta
