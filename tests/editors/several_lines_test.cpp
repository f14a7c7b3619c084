// Several lines of an editor's list: selected with Shift and Ctrl, changed together.

#include "editors/entry_list_view.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/brake_mode.h"

#include <QSignalSpy>

namespace orvanta::test {

template <typename Form> class SeveralLines : public EditorOnScreen<Form>
{
protected:
    void openFive() { this->openWith({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s, u"d{}4"_s, u"e{}5"_s}); }
    void press(QPushButton* EditorWindow::*button) const
    {
        QTest::mouseClick((*this->editor).*button, Qt::LeftButton);
    }
    void click(int row, Qt::KeyboardModifiers keys = Qt::NoModifier) const
    {
        clickRow(this->editor->List1, row, keys);
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers keys = Qt::NoModifier) const
    {
        QTest::keyClick(this->editor->List1, pressed, keys);
    }
    [[nodiscard]] QString paths() const
    {
        QString all;
        for (const QString& entry : this->entries()) {
            all += entry.left(1);
        }
        return all;
    }
    [[nodiscard]] QList<int> rows() const { return selectedRows(this->editor->List1->list()); }
    /// What the list box itself shows as selected.
    [[nodiscard]] QList<int> shownRows() const
    {
        QList<int> shown;
        for (int row = 0; row < this->editor->List1->model()->rowCount(); ++row) {
            if (this->editor->List1->selectionModel()->isRowSelected(row)) {
                shown.append(row);
            }
        }
        return shown;
    }
    void expectRows(const QList<int>& expected) const
    {
        EXPECT_EQ(rows(), expected);
        EXPECT_EQ(shownRows(), expected);
    }
};

using EditorsOfLines = testing::Types<Form5, Form6>;
TYPED_TEST_SUITE(SeveralLines, EditorsOfLines);

TYPED_TEST(SeveralLines, AreSelectedWithShiftAndCtrlByMouse)
{
    this->openFive();
    this->click(1);
    this->click(3, Qt::ShiftModifier);
    this->expectRows({1, 2, 3});
    this->click(2, Qt::ControlModifier);
    this->expectRows({1, 3});
    this->click(4, Qt::ControlModifier);
    this->expectRows({1, 3, 4});
    this->click(3);
    this->expectRows({3});
}

TYPED_TEST(SeveralLines, AreSelectedWithShiftAndCtrlByKeys)
{
    this->openFive();
    this->click(1);
    this->key(Qt::Key_Down, Qt::ShiftModifier);
    this->expectRows({1, 2});
    this->key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    this->key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    this->key(Qt::Key_Space, Qt::ControlModifier);
    this->expectRows({1, 2, 4});
    this->key(Qt::Key_Space, Qt::ControlModifier);
    this->expectRows({1, 2});
    this->key(Qt::Key_A, Qt::ControlModifier);
    this->expectRows({0, 1, 2, 3, 4});
    this->key(Qt::Key_Home);
    this->expectRows({0});
}

TYPED_TEST(SeveralLines, TheBoxesShowTheOneThatWasReachedLastAndChangeItAlone)
{
    this->openFive();
    this->click(1);
    this->click(3, Qt::ControlModifier);
    EXPECT_EQ(this->editor->Text1->text(), u"d"_s);
    typeOver(this->editor->Text1, u"new"_s);
    EXPECT_TRUE(this->entries().at(3).startsWith(u"new{}"_s));
    EXPECT_EQ(this->entries().at(1), u"b{}2"_s);
    this->expectRows({1, 3});
}

TYPED_TEST(SeveralLines, WhatIsLetGoOfLeavesTheBoxesToAnother)
{
    this->openFive();
    this->click(1);
    this->click(3, Qt::ControlModifier);
    this->click(3, Qt::ControlModifier);
    this->expectRows({1});
    EXPECT_EQ(this->editor->Text1->text(), u"b"_s);
    typeOver(this->editor->Text1, u"new"_s);
    EXPECT_TRUE(this->entries().at(1).startsWith(u"new{}"_s));
    EXPECT_EQ(this->entries().at(3), u"d{}4"_s);
}

TYPED_TEST(SeveralLines, OnlyAnotherLineInTheBoxesIsAClick)
{
    this->openFive();
    const QSignalSpy clicks(this->editor->List1, &EntryListView::Click);
    this->click(1);
    this->click(3, Qt::ShiftModifier);
    this->click(2, Qt::ControlModifier); // taken out
    this->key(Qt::Key_A, Qt::ControlModifier);
    QList<int> rows;
    for (const QList<QVariant>& click : clicks) {
        rows.append(click.first().toInt());
    }
    EXPECT_EQ(rows, QList<int>({1, 3, 2}));
}

TYPED_TEST(SeveralLines, AreRemovedAndMovedByButtonsAndKeys)
{
    this->openFive();
    this->click(1);
    this->click(3, Qt::ControlModifier);
    this->press(&EditorWindow::Command9);
    EXPECT_EQ(this->paths(), u"badce"_s);
    this->expectRows({0, 2});
    this->press(&EditorWindow::Command9);
    EXPECT_EQ(this->paths(), u"badce"_s);
    this->key(Qt::Key_Down, Qt::ControlModifier);
    this->press(&EditorWindow::Command10);
    EXPECT_EQ(this->paths(), u"acbed"_s);
    this->expectRows({2, 4});
    this->key(Qt::Key_Delete);
    EXPECT_EQ(this->paths(), u"ace"_s);
    this->expectRows({});
}

TYPED_TEST(SeveralLines, ShiftGoesOnFromALineThatWasMoved)
{
    this->openFive();
    this->click(0);
    this->press(&EditorWindow::Command10);
    this->key(Qt::Key_Down, Qt::ShiftModifier);
    this->expectRows({1, 2});
    this->key(Qt::Key_Down, Qt::ShiftModifier);
    this->expectRows({1, 2, 3});
    this->key(Qt::Key_Up, Qt::ShiftModifier);
    this->expectRows({1, 2});
    this->click(0, Qt::ShiftModifier);
    this->expectRows({0, 1});
}

TYPED_TEST(SeveralLines, ComeBackWithTheirSelection)
{
    this->openFive();
    this->click(0);
    this->click(2, Qt::ControlModifier);
    this->click(3, Qt::ControlModifier);
    this->press(&EditorWindow::Command5);
    this->click(0);
    this->editor->List1->undo();
    EXPECT_EQ(this->paths(), u"abcde"_s);
    this->expectRows({0, 2, 3});
    EXPECT_EQ(this->editor->Text1->text(), u"d"_s);
    this->editor->List1->redo();
    EXPECT_EQ(this->paths(), u"be"_s);
    this->expectRows({});
}

TEST_F(BrakeMode, SeveralBrakesAreRemovedAndTheSliderMovesTheShownOneAlone)
{
    openClip();
    setBrakes({u"000001.00{}a"_s, u"000002.00{}b"_s, u"000003.00{}c"_s});
    clickRow(editor->List2, 0);
    clickRow(editor->List2, 2, Qt::ControlModifier);
    EXPECT_EQ(editor->Text4->text(), u"c"_s);
    key(Qt::Key_Right);
    EXPECT_EQ(brakes(), QStringList({u"000001.00{}a"_s, u"000002.00{}b"_s, u"000003.10{}c"_s}));
    press(editor->Command11);
    EXPECT_EQ(brakes(), QStringList(u"000002.00{}b"_s));
}

} // namespace orvanta::test
