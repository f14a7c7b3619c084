// The list box of the editors: its rows and its selection follow whatever is done to the list.

#include "editors/entry_list_view.h"
#include "platform/screen/window_basics.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <array>
#include <gtest/gtest.h>
#include <random>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class EntryListViewTest : public testing::Test
{
protected:
    [[nodiscard]] QStringList rows() const
    {
        QStringList shown;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            shown.append(view.model()->index(row, 0).data().toString());
        }
        return shown;
    }
    [[nodiscard]] int selectedRow() const
    {
        const QModelIndexList selected = view.selectionModel()->selectedIndexes();
        return selected.isEmpty() ? -1 : selected.first().row();
    }

    bool isLent = false;
    QString tip;
    EntryListView view{[this](const QStringList& entries, int row) {
        return EntryLook{
            .lead = {}, .text = entries.at(row), .aside = {}, .isLent = isLent, .tip = tip};
    }};
};

} // namespace

TEST_F(EntryListViewTest, AThousandChangesKeepRowsAndSelectionAsTheListHasThem)
{
    const QAbstractItemModelTester tester(view.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy clicks(&view, &EntryListView::Click);
    std::mt19937 random(7);
    const auto upTo = [&](int most) { return static_cast<int>(random() % (most + 1U)); };
    const std::array<void (*)(EntryList&), 5> operations = {makeRoom, removeSelected, moveUp,
                                                            moveDown, removeAll};
    view.setVisible(true);
    for (int change = 0; change < 1000; ++change) {
        const int which = upTo(12);
        view.change([&](EntryList& list) {
            if (which < 5) {
                // Removing all at every turn would keep the list from growing.
                operations[static_cast<std::size_t>(which == 4 && change % 9 != 0 ? 0 : which)](
                    list);
            } else if (which < 8) {
                rebuildSelected(list, QString::number(upTo(3)));
            } else if (which < 10) {
                list.entries += QStringList(upTo(4), u"same"_s);
            } else {
                list.selected = upTo(static_cast<int>(list.entries.size())) - 1;
            }
        });
        ASSERT_EQ(rows(), view.list().entries) << change;
        ASSERT_EQ(selectedRow(), view.list().selected) << change;
    }
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(EntryListViewTest, WhatAFailingChangeDidBeforeIsShown)
{
    const auto failing = [](EntryList& list) {
        list.entries.append(u"before"_s);
        throw 13;
    };
    EXPECT_THROW(view.change(failing), int);
    EXPECT_EQ(rows(), QStringList({u"before"_s}));
}

TEST_F(EntryListViewTest, ALentTextIsMutedAndItsRowHasATipOfItsOwn)
{
    view.change([](EntryList& list) { list.entries = {u"text"_s}; });
    const QImage own = view.grab().toImage();
    const QModelIndex row = view.model()->index(0, 0);
    EXPECT_FALSE(row.data(Qt::ToolTipRole).isValid());
    isLent = true;
    tip = u"in words"_s;
    EXPECT_NE(view.grab().toImage(), own);
    EXPECT_EQ(row.data(Qt::ToolTipRole).toString(), plainToolTip(tip));
    EXPECT_EQ(row.data(Qt::AccessibleDescriptionRole).toString(), tip);
}

} // namespace orvanta::test
