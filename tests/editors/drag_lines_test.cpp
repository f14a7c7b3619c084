// Lines of an editor's list are put elsewhere with the mouse.

#include "editors/entry_list_view.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/brake_mode.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>

namespace orvanta::test {

namespace {

/// The entries that are selected, over a list and let go there. The desktop tells a window of them
/// by these events alone.
class EntriesInHand
{
public:
    explicit EntriesInHand(EntryListView* from)
        : m_data(from->model()->mimeData({}))
    {}
    void over(EntryListView* list, QPoint at)
    {
        QDragEnterEvent enter(at, Qt::MoveAction, m_data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &enter);
        QDragMoveEvent move(at, Qt::MoveAction, m_data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &move);
        taken = move.isAccepted();
    }
    void letGo(EntryListView* list, QPoint at)
    {
        over(list, at);
        QDropEvent drop(at, Qt::MoveAction, m_data.get(), Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &drop);
    }

    bool taken = false;

private:
    std::unique_ptr<QMimeData> m_data;
};

} // namespace

/// The place of a row, a part of its height below its top.
static QPoint placeIn(const EntryListView& list, int row, double part)
{
    const QRect place = list.visualRect(list.model()->index(row, 0));
    return {place.left() + 40, place.top() + static_cast<int>(part * place.height())};
}

template <typename Form> class DraggedLines : public EditorOnScreen<Form>
{
protected:
    void openFour()
    {
        this->openWith({u"a{}1"_s, u"b{}2"_s, u"c{}3"_s, u"d{}4"_s});
        ASSERT_TRUE(QTest::qWaitForWindowActive(this->editor.get()));
    }
    /// Takes what is selected, or this row when it is not, and lets it go there.
    void drag(int row, QPoint target)
    {
        EntryListView* list = this->editor->List1;
        if (!list->selectionModel()->isRowSelected(row)) {
            clickRow(list, row);
        }
        EntriesInHand(list).letGo(list, target);
    }
    [[nodiscard]] QPoint at(int row, double part) const
    {
        return placeIn(*this->editor->List1, row, part);
    }
    [[nodiscard]] QString paths() const
    {
        QString all;
        for (const QString& entry : this->entries()) {
            all += entry.left(1);
        }
        return all;
    }
};

using EditorsWithDrag = testing::Types<Form5, Form6>;
TYPED_TEST_SUITE(DraggedLines, EditorsWithDrag);

TYPED_TEST(DraggedLines, OneLineGoesBeforeOrBehindAnother)
{
    this->openFour();
    this->drag(0, this->at(2, 0.8));
    EXPECT_EQ(this->paths(), u"bcad"_s);
    EXPECT_EQ(this->selected(), 2);
    this->drag(3, this->at(0, 0.2));
    EXPECT_EQ(this->paths(), u"dbca"_s);
    EXPECT_EQ(this->editor->Text1->text(), u"d"_s);
}

TYPED_TEST(DraggedLines, BelowTheLastOneIsTheEnd)
{
    this->openFour();
    this->drag(1, this->at(3, 1.0) + QPoint(0, 20));
    EXPECT_EQ(this->paths(), u"acdb"_s);
}

TYPED_TEST(DraggedLines, SeveralGoTogetherAndComeBackInOneStep)
{
    this->openFour();
    clickRow(this->editor->List1, 0);
    clickRow(this->editor->List1, 2, Qt::ControlModifier);
    this->drag(2, this->at(3, 0.9));
    EXPECT_EQ(this->paths(), u"bdac"_s);
    EXPECT_EQ(selectedRows(this->editor->List1->list()), QList<int>({2, 3}));
    this->editor->List1->undo();
    EXPECT_EQ(this->paths(), u"abcd"_s);
    EXPECT_EQ(selectedRows(this->editor->List1->list()), QList<int>({0, 2}));
}

TYPED_TEST(DraggedLines, ALineShowsWhereTheyWillGo)
{
    this->openFour();
    EntryListView* list = this->editor->List1;
    clickRow(list, 0);
    const QImage before = list->viewport()->grab().toImage();
    EntriesInHand hand(list);
    hand.over(list, this->at(2, 0.2));
    EXPECT_TRUE(hand.taken);
    const QImage above = list->viewport()->grab().toImage();
    hand.over(list, this->at(2, 0.8));
    const QImage below = list->viewport()->grab().toImage();
    EXPECT_NE(above, before);
    EXPECT_NE(below, above);
    hand.letGo(list, this->at(0, 0.2));
    EXPECT_EQ(list->viewport()->grab().toImage(), before) << "the line goes with the drag";
}

TYPED_TEST(DraggedLines, ALineIsDraggedAndDroppedBetweenOthersOnly)
{
    this->openFour();
    const QAbstractItemModel* rows = this->editor->List1->model();
    EXPECT_TRUE(this->editor->List1->dragEnabled());
    EXPECT_TRUE(rows->flags(rows->index(1, 0)).testFlag(Qt::ItemIsDragEnabled));
    EXPECT_FALSE(rows->flags(rows->index(1, 0)).testFlag(Qt::ItemIsDropEnabled));
}

TYPED_TEST(DraggedLines, AnotherListsLinesAreNotTaken)
{
    this->openFour();
    EntryListView other([](const QStringList&, int) { return EntryLook(); });
    EntriesInHand hand(&other);
    clickRow(this->editor->List1, 0);
    hand.letGo(this->editor->List1, this->at(2, 0.8));
    EXPECT_FALSE(hand.taken);
    EXPECT_EQ(this->paths(), u"abcd"_s);
}

TYPED_TEST(DraggedLines, ALineThatIsDroppedWhereItWasIsNoStep)
{
    this->openFour();
    this->editor->List1->change([](EntryList& list) { removeAll(list); });
    this->editor->List1->undo();
    this->drag(1, this->at(1, 0.2) + QPoint(30, 0));
    EXPECT_EQ(this->paths(), u"abcd"_s);
    this->editor->List1->redo();
    EXPECT_EQ(this->paths(), QString()) << "what was taken back is not forgotten";
}

TEST_F(BrakeMode, ADraggedBrakeKeepsItsTime)
{
    openClip();
    setBrakes({u"000001.00{}a"_s, u"000002.00{}b"_s, u"000003.00{}c"_s});
    clickRow(editor->List2, 0);
    EntriesInHand(editor->List2).letGo(editor->List2, placeIn(*editor->List2, 1, 0.8));
    EXPECT_EQ(brakes(), QStringList({u"000002.00{}b"_s, u"000001.00{}a"_s, u"000003.00{}c"_s}));
}

} // namespace orvanta::test
