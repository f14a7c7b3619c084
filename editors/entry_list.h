// The list of an editor: entries and those that are selected, with the operations on both.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <algorithm>

namespace orvanta {

/// Entries are fields joined by the entry marker "{}". Indices count from 0.
struct EntryList
{
    QStringList entries;
    int selected = -1;      // -1: none; of several the one whose fields the boxes show
    QList<int> others = {}; // selected, too: ascending, without that one

    [[nodiscard]] bool hasSelection() const { return selected >= 0 && selected < entries.size(); }
    [[nodiscard]] QString selectedEntry() const
    {
        return hasSelection() ? entries.at(selected) : QString();
    }
    /// Not by the list's own comparison of numbers, which gives memcmp a null pointer for a list
    /// that never had any.
    friend bool operator==(const EntryList& a, const EntryList& b)
    {
        return a.entries == b.entries && a.selected == b.selected &&
               std::ranges::equal(a.others, b.others);
    }
};

/// Makes the selected entry a fresh one for a file that is being added: right after the selected
/// entry. With none selected the fresh entry goes to the end and entry 0 is selected, so that a
/// list that was not empty has its first entry overwritten: on purpose.
void makeRoom(EntryList& list);

/// Puts the entry in the selected one's place; with none selected it is appended and selected.
void rebuildSelected(EntryList& list, const QString& entry);

/// Of all that are selected, ascending.
[[nodiscard]] QList<int> selectedRows(const EntryList& list);
/// Selects these, ascending; shown: the one of them whose fields the boxes show. None for none.
void selectRows(EntryList& list, const QList<int>& rows, int shown);

/// Removes the selected entries; none is selected afterwards.
void removeSelected(EntryList& list);
void removeAll(EntryList& list);

/// Moves the selected entries one place each and keeps them selected. When one of them is at the
/// end of the way nothing happens: what lies between them stays between them.
void moveUp(EntryList& list);
void moveDown(EntryList& list);
/// Moves the selected entries together, in their order, before this one, counted from 0 as they
/// stand now; the number of entries moves them to the end. They stay selected.
void moveBefore(EntryList& list, int place);

/// Where two lists differ: [first, oldEnd) of the old one stands where [first, newEnd) of the new
/// one does. All counted from 0.
struct ListDifference
{
    qsizetype first = 0;
    qsizetype oldEnd = 0;
    qsizetype newEnd = 0;
};
[[nodiscard]] ListDifference differenceOf(const QStringList& old, const QStringList& next);

/// "{}", which joins the fields of an entry.
[[nodiscard]] QString entryMarker();

/// What stands before and after a marker.
struct MarkerSplit
{
    bool found = false;
    QString before;
    QString after;
};
/// The last marker decides.
[[nodiscard]] MarkerSplit splitAtLastMarker(const QString& entry);

/// One entry, path + "{}" + the name up to its last ".", for each file of a folder.
[[nodiscard]] QStringList entriesOfFiles(const QString& folder, const QStringList& names);

/// The name up to its last "."; the whole name when it has none.
[[nodiscard]] QString nameWithoutExtension(const QString& name);

/// A text that fits on one line of a file: every line break (and NUL) is a blank.
[[nodiscard]] QString onOneLine(QString text);

} // namespace orvanta
