#include "editors/entry_list.h"

#include "core/packet_file.h"
#include "core/paths.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static void selectOnly(EntryList& list, qsizetype row)
{
    list.selected = static_cast<int>(row);
    list.others.clear();
}

void makeRoom(EntryList& list)
{
    if (!list.hasSelection()) {
        list.entries.append(QString());
        selectOnly(list, 0);
        return;
    }
    selectOnly(list, list.selected + 1);
    list.entries.insert(list.selected, QString());
}

void rebuildSelected(EntryList& list, const QString& entry)
{
    if (!list.hasSelection()) {
        selectOnly(list, list.entries.size());
        list.entries.append(entry);
        return;
    }
    list.entries[list.selected] = entry;
}

QList<int> selectedRows(const EntryList& list)
{
    if (!list.hasSelection()) {
        return {};
    }
    QList<int> rows = list.others;
    rows.insert(std::lower_bound(rows.begin(), rows.end(), list.selected), list.selected);
    return rows;
}

void selectRows(EntryList& list, const QList<int>& rows, int shown)
{
    list.selected = rows.isEmpty() ? -1 : shown;
    list.others = rows;
    list.others.removeOne(shown);
}

/// The entries that are selected, and the others, in their order.
static std::pair<QStringList, QStringList> parted(const EntryList& list)
{
    std::pair<QStringList, QStringList> parts;
    const QList<int> rows = selectedRows(list);
    auto next = rows.cbegin();
    for (int row = 0; row < list.entries.size(); ++row) {
        const bool isSelected = next != rows.cend() && *next == row;
        (isSelected ? parts.first : parts.second).append(list.entries.at(row));
        next += isSelected ? 1 : 0;
    }
    return parts;
}

void removeSelected(EntryList& list)
{
    if (list.hasSelection()) {
        list.entries = parted(list).second;
        selectOnly(list, -1);
    }
}

void removeAll(EntryList& list)
{
    list = {};
}

static void shiftSelection(EntryList& list, int by)
{
    list.selected += by;
    for (int& row : list.others) {
        row += by;
    }
}

void moveUp(EntryList& list)
{
    const QList<int> rows = selectedRows(list);
    if (rows.isEmpty() || rows.front() == 0) {
        return;
    }
    for (const int row : rows) {
        list.entries.move(row, row - 1);
    }
    shiftSelection(list, -1);
}

void moveDown(EntryList& list)
{
    const QList<int> rows = selectedRows(list);
    if (rows.isEmpty() || rows.back() + 1 == list.entries.size()) {
        return;
    }
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        list.entries.move(*row, *row + 1);
    }
    shiftSelection(list, 1);
}

void moveBefore(EntryList& list, int place)
{
    const QList<int> rows = selectedRows(list);
    if (rows.isEmpty()) {
        return;
    }
    const auto [moved, rest] = parted(list);
    const auto before = std::lower_bound(rows.cbegin(), rows.cend(), place) - rows.cbegin();
    const qsizetype first = place - before;
    list.entries = rest.first(first) + moved + rest.sliced(first);
    QList<int> next(rows.size());
    std::iota(next.begin(), next.end(), static_cast<int>(first));
    selectRows(list, next, next.at(rows.indexOf(list.selected)));
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
