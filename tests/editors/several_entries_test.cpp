// The operations of an editor's list where several entries are selected.

#include "editors/brake_list.h"
#include "editors/entry_list.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static EntryList listWith(const QString& letters, const QList<int>& rows, int shown)
{
    EntryList list = {.entries = letters.split(QString(), Qt::SkipEmptyParts)};
    selectRows(list, rows, shown);
    return list;
}

TEST(SeveralEntries, ChangeTogether)
{
    struct Row
    {
        const char* rule;
        void (*change)(EntryList&);
        EntryList before;
        EntryList after;
    };
    const Row rows[] = {
        {"all that are selected are removed", removeSelected, listWith(u"abcde"_s, {0, 2, 3}, 2),
         listWith(u"be"_s, {}, -1)},
        {"they go up together", moveUp, listWith(u"abcde"_s, {1, 2, 4}, 4),
         listWith(u"bcaed"_s, {0, 1, 3}, 3)},
        {"they go down together", moveDown, listWith(u"abcde"_s, {0, 2, 3}, 0),
         listWith(u"baecd"_s, {1, 3, 4}, 1)},
        {"with one at the top none goes up", moveUp, listWith(u"abc"_s, {0, 2}, 2),
         listWith(u"abc"_s, {0, 2}, 2)},
        {"with one at the bottom none goes down", moveDown, listWith(u"abc"_s, {0, 2}, 0),
         listWith(u"abc"_s, {0, 2}, 0)},
        {"a new entry comes behind the one that is shown and is selected alone",
         makeRoom,
         {.entries = {u"a"_s, u"b"_s}, .selected = 0, .others = {1}},
         {.entries = {u"a"_s, QString(), u"b"_s}, .selected = 1}},
    };
    for (const Row& row : rows) {
        EntryList list = row.before;
        row.change(list);
        EXPECT_EQ(list, row.after)
            << row.rule << ": " << list.entries.join(QString()).toStdString();
    }
}

TEST(SeveralEntries, AreMovedTogetherBeforeAnyOther)
{
    struct Row
    {
        QList<int> rows;
        int shown;
        int place;
        EntryList after;
    };
    const Row rows[] = {
        {{1, 3}, 3, 0, listWith(u"bdace"_s, {0, 1}, 1)},
        {{1, 3}, 1, 5, listWith(u"acebd"_s, {3, 4}, 3)},
        {{1, 3}, 1, 2, listWith(u"abdce"_s, {1, 2}, 1)},
        {{1, 3}, 3, 3, listWith(u"acbde"_s, {2, 3}, 3)},
        {{2}, 2, 2, listWith(u"abcde"_s, {2}, 2)},
        {{2}, 2, 3, listWith(u"abcde"_s, {2}, 2)},
        {{2}, 2, 1, listWith(u"acbde"_s, {1}, 1)},
        {{}, -1, 1, listWith(u"abcde"_s, {}, -1)},
    };
    for (const Row& row : rows) {
        EntryList list = listWith(u"abcde"_s, row.rows, row.shown);
        moveBefore(list, row.place);
        EXPECT_EQ(list, row.after)
            << row.place << ' ' << list.entries.join(QString()).toStdString();
    }
}

TEST(SeveralEntries, OnlyTheShownOneIsRebuilt)
{
    EntryList list = listWith(u"abc"_s, {0, 1, 2}, 1);
    rebuildSelected(list, u"new"_s);
    EXPECT_EQ(list.entries, QStringList({u"a"_s, u"new"_s, u"c"_s}));
    EXPECT_EQ(selectedRows(list), QList<int>({0, 1, 2}));
}

TEST(SeveralEntries, ABrakeThatIsAddedLeavesThemSelected)
{
    EntryList list = listWith(u"abc"_s, {0, 2}, 2);
    addBrake(list, 1, u"d"_s);
    EXPECT_EQ(selectedRows(list), QList<int>({0, 2}));
}

TEST(SeveralEntries, EverySecondOfTheLongestListIsRemoved)
{
    EntryList list;
    QList<int> rows;
    for (int row = 0; row < 32767; ++row) {
        list.entries.append(QString::number(row));
        if (row % 2 == 0) {
            rows.append(row);
        }
    }
    selectRows(list, rows, 0);
    moveDown(list);
    EXPECT_EQ(list.entries.at(0), u"0"_s) << "the last one is selected";
    removeSelected(list);
    EXPECT_EQ(list.entries.size(), 16383);
    EXPECT_EQ(list.entries.last(), u"32765"_s);
}

} // namespace orvanta::test
