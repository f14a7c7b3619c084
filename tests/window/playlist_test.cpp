// The playlist's list: lines, marks, clicks, tool tips, and its speed.

#include "tests/support/growth.h"
#include "tests/window/window_fixture.h"

#include <algorithm>

namespace orvanta::test {

class PlaylistView : public Form2Test
{
protected:
    void showThreePackets()
    {
        addThreePackets();
        showList();
    }

    void moveOverRow(int row, int pixel)
    {
        const QRect line = window->List1->visualRect(window->List1->model()->index(row, 0));
        QTest::mouseMove(window->List1->viewport(), {50, line.top() + pixel});
        const QPoint place(50, line.top() + pixel);
        QMouseEvent move(QEvent::MouseMove, place, window->List1->viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(window->List1->viewport(), &move);
    }
};

TEST_F(PlaylistView, ShowsTheTree)
{
    addClips(u"first"_s, {u"one"_s});
    addClips(u"empty"_s, {});
    addClips(u"last"_s, {u"a"_s, u"b"_s, u"c"_s});
    showList();
    EXPECT_EQ(listedTexts(),
              (QStringList{u"!Orvanta!"_s, u"|-- first"_s, u"|  |- one"_s, u"|-- empty"_s,
                           u"|-- last"_s, u"   |- a"_s, u"   |- b"_s, u"   |- c"_s}));
}

TEST_F(PlaylistView, EveryLineButTheRootIsCheckedWhenAdded)
{
    showThreePackets();
    EXPECT_FALSE(window->isLineChecked(0));
    for (int line = 1; line < window->lineCount(); ++line) {
        EXPECT_TRUE(window->isLineChecked(line)) << line;
    }
}

TEST_F(PlaylistView, TheRootHasNoBox)
{
    showThreePackets();
    const QAbstractItemModel& model = *window->List1->model();
    EXPECT_FALSE(model.data(model.index(0, 0), Qt::CheckStateRole).isValid());
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsUserCheckable));
    window->checkLine(0);
    EXPECT_FALSE(window->isLineChecked(0));
}

TEST_F(PlaylistView, ClickingTheBoxTogglesAndLeavesTheCursor)
{
    showThreePackets();
    clickRow(2);
    clickListAt(boxOfRow(3));
    EXPECT_FALSE(window->isLineChecked(3));
    EXPECT_EQ(window->List1->cursorLine(), 2);
    clickListAt(boxOfRow(3));
    EXPECT_TRUE(window->isLineChecked(3));
}

TEST_F(PlaylistView, ClickingTheTextMovesTheCursorAndLeavesTheMark)
{
    showThreePackets();
    clickRow(3);
    EXPECT_EQ(window->List1->cursorLine(), 3);
    EXPECT_TRUE(window->isLineChecked(3));
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(PlaylistView, SpaceWithControlTogglesTheCurrentLine)
{
    showThreePackets();
    clickRow(2);
    QTest::keyClick(window->List1, Qt::Key_Down);
    QTest::keyClick(window->List1, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(window->isLineChecked(3));
    QTest::keyClick(window->List1, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(window->isLineChecked(3));
}

TEST_F(PlaylistView, SpaceAloneLeavesEveryMark)
{
    showThreePackets();
    clickRow(2);
    QTest::keyClick(window->List1, Qt::Key_Space);
    EXPECT_TRUE(window->isLineChecked(2));
    QTest::keyClick(window->List1, Qt::Key_Down);
    QTest::keyClick(window->List1, Qt::Key_Space);
    EXPECT_TRUE(window->isLineChecked(3));
    window->Image5->setFocus();
    window->List1->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window->List1, Qt::Key_Space);
    EXPECT_TRUE(window->isLineChecked(3));
}

TEST_F(PlaylistView, ClickingTheRootLeavesNoCurrentLine)
{
    showThreePackets();
    clickRow(2);
    clickRow(0);
    EXPECT_EQ(window->List1->cursorLine(), -1);
}

TEST_F(PlaylistView, KeysNeverMakeTheRootCurrent)
{
    showThreePackets();
    clickRow(2);
    QTest::keyClick(window->List1, Qt::Key_Home);
    EXPECT_EQ(window->List1->cursorLine(), 1);
    QTest::keyClick(window->List1, Qt::Key_Up);
    EXPECT_EQ(window->List1->cursorLine(), 1);
    QTest::keyClick(window->List1, Qt::Key_Down);
    EXPECT_EQ(window->List1->cursorLine(), 2);
}

TEST_F(PlaylistView, ReachingTheListByKeyMakesNoLineCurrent)
{
    showThreePackets();
    window->Image8->setFocus(Qt::TabFocusReason);
    window->List1->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window->List1->cursorLine(), -1);
}

TEST_F(PlaylistView, LettersAreNotSearchedFor)
{
    addClips(u"pack"_s, {u"apple"_s, u"sour"_s});
    showList();
    clickRow(2);
    for (const char letter : {'a', 's', '|'}) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(letter)));
        QCoreApplication::sendEvent(window->List1, &press);
    }
    EXPECT_EQ(window->List1->cursorLine(), 2);
}

TEST_F(PlaylistView, DoubleClickOnAClipStartsIt)
{
    showThreePackets();
    doubleClickRow(6);
    EXPECT_EQ(module.playlist.CurrentPacket, Int16(2));
    EXPECT_EQ(module.playlist.CurrentClip, Int16(2));
    EXPECT_EQ(window->Text2->text(), u"four");
    EXPECT_EQ(window->List1->cursorLine(), 6);
    EXPECT_EQ(control.FileName(), home.file(u"four.avi"_s));
}

TEST_F(PlaylistView, ADoubleClickElsewhereStartsNothing)
{
    struct Row
    {
        const char* place;
        int clicked; // before; -1: none
        int line;
        bool onBox;
        int cursor;
    };
    for (const Row& row :
         {Row{"a header", 4, 4, false, 4}, Row{"the root", 0, 0, false, -1},
          Row{"a line that is not current", -1, 2, false, -1}, Row{"a box", 2, 2, true, 2}}) {
        module.playlist = {};
        showThreePackets();
        if (row.clicked >= 0) {
            clickRow(row.clicked);
        }
        const QPoint place = row.onBox ? boxOfRow(row.line) : textOfRow(row.line);
        QTest::mouseDClick(window->List1->viewport(), Qt::LeftButton, {}, place);
        EXPECT_EQ(control.FileName(), QString()) << row.place;
        EXPECT_EQ(module.playlist.CurrentPacket, Int16(0)) << row.place;
        EXPECT_EQ(window->List1->cursorLine(), row.cursor) << row.place;
        EXPECT_FALSE(reported.has_value()) << row.place;
    }
}

TEST_F(PlaylistView, StartingALineChecksIt)
{
    showThreePackets();
    clickListAt(boxOfRow(2));
    ASSERT_FALSE(window->isLineChecked(2));
    doubleClickRow(2);
    EXPECT_TRUE(window->isLineChecked(2));
}

TEST_F(PlaylistView, ReturnStartsTheCurrentLine)
{
    showThreePackets();
    clickRow(3);
    QTest::keyClick(window->List1, Qt::Key_Return);
    EXPECT_EQ(module.playlist.CurrentClip, Int16(2));
}

TEST_F(PlaylistView, RowsAreThirteenPixelsHighAndBeginAtTheTop)
{
    showThreePackets();
    for (int row = 0; row < 5; ++row) {
        const QRect line = window->List1->visualRect(window->List1->model()->index(row, 0));
        EXPECT_EQ(line.top(), 13 * row);
        EXPECT_EQ(line.height(), 13);
    }
    EXPECT_LE(window->List1->fontMetrics().height(), 13);
}

TEST_F(PlaylistView, TheToolTipNamesTheLineUnderThePointerAtEveryPixel)
{
    showThreePackets();
    const QStringList texts = {u"first"_s, u"one"_s, u"two"_s, u"second"_s, u"three"_s};
    for (int row = 1; row <= texts.size(); ++row) {
        for (int pixel = 0; pixel < 13; ++pixel) {
            window->List1->setToolTip(u"before"_s);
            moveOverRow(row, pixel);
            EXPECT_EQ(window->List1->toolTip(), texts.at(row - 1)) << row << ", pixel " << pixel;
        }
    }
}

TEST_F(PlaylistView, TheToolTipFollowsAScrolledList)
{
    QStringList texts;
    for (int i = 1; i <= 300; ++i) {
        texts.append(u"clip %1"_s.arg(i));
    }
    addClips(u"many"_s, texts);
    showList();
    window->List1->verticalScrollBar()->setValue(100);
    moveOverRow(103, 6);
    EXPECT_EQ(window->List1->toolTip(), u"clip 102");
}

TEST_F(PlaylistView, TheToolTipShowsSignsThatLookLikeMarkup)
{
    addClips(u"many"_s, {u"<b>bold & more"_s});
    showList();
    moveOverRow(2, 6);
    EXPECT_EQ(window->List1->toolTip(), u"&lt;b&gt;bold &amp; more");
}

TEST_F(PlaylistView, TheToolTipStaysOverTheRootAndBelowTheLastLine)
{
    showThreePackets();
    window->List1->setToolTip(u"before"_s);
    moveOverRow(0, 5);
    EXPECT_EQ(window->List1->toolTip(), u"before");
    moveOverRow(window->lineCount() - 1, 13 + 6);
    EXPECT_EQ(window->List1->toolTip(), u"before");
}

TEST_F(PlaylistView, TheTreeIsASnapshot)
{
    showThreePackets();
    module.playlist.Playlist.front().Clips.front().Text = u"changed"_s;
    EXPECT_EQ(listedTexts().at(2), u"|  |- one");
    window->RebuildTree();
    EXPECT_EQ(listedTexts().at(2), u"|  |- changed");
}

TEST_F(PlaylistView, RebuildingLeavesNoCurrentLine)
{
    showThreePackets();
    clickRow(3);
    window->RebuildTree();
    EXPECT_EQ(window->List1->cursorLine(), -1);
}

TEST_F(PlaylistView, ClearingLeavesNoLine)
{
    showThreePackets();
    window->clearList();
    EXPECT_EQ(window->lineCount(), 0);
    EXPECT_EQ(window->headerLineOf(1), -1);
}

TEST_F(PlaylistView, HeaderLinesAreThoseOfTheShownTree)
{
    showThreePackets();
    EXPECT_EQ(window->headerLineOf(1), 1);
    EXPECT_EQ(window->headerLineOf(2), 4);
    EXPECT_EQ(window->headerLineOf(3), 7);
    EXPECT_EQ(window->headerLineOf(4), -1);
}

TEST_F(PlaylistView, Timer2MarksItsLineOnceAndSwitchesItselfOff)
{
    showThreePackets();
    clickListAt(boxOfRow(2));
    window->enableTimer2(2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->isLineChecked(2); }));
    EXPECT_FALSE(window->Timer2.isActive());
}

class LongPlaylist : public Form2Test
{
protected:
    static constexpr int kClips = 32767;

    void addManyClips(int count)
    {
        PlaylistEntry packet;
        packet.Title = u"many"_s;
        for (int i = 1; i <= count; ++i) {
            packet.Clips.push_back({.Time = {}, .Text = u"clip %1"_s.arg(i), .Path = u"/x"_s});
        }
        packet.ClipCount = count;
        module.playlist.Playlist = {packet};
        module.playlist.PlaylistCount = 1;
    }

    /// Until the tree stands in the list, laid out and painted.
    double rebuildSeconds(int clips)
    {
        addManyClips(clips);
        return leastCpuSeconds([this] {
            window->RebuildTree();
            window->List1->scrollToBottom();
            window->List1->viewport()->repaint();
        });
    }

    double scrollSeconds()
    {
        constexpr int kSteps = 50;
        QScrollBar& bar = *window->List1->verticalScrollBar();
        return leastCpuSeconds([&] {
            for (int step = 0; step < kSteps; ++step) {
                bar.setValue(bar.maximum() * step / kSteps);
                window->List1->viewport()->repaint();
            }
        });
    }
};

TEST_F(LongPlaylist, IsRebuiltAtACostThatGrowsWithItsLength)
{
    show();
    const double small = rebuildSeconds(kClips / 8);
    EXPECT_LT(growth(small, rebuildSeconds(kClips)), 24);
    EXPECT_EQ(window->lineCount(), kClips + 2);
}

TEST_F(LongPlaylist, ScrollsAtTheCostOfAShortOne)
{
    addManyClips(200);
    showList();
    const double shortList = scrollSeconds();
    addManyClips(kClips);
    window->RebuildTree();
    EXPECT_LT(growth(shortList, scrollSeconds()), 6);
}

TEST_F(LongPlaylist, MovingThePointerOverItsEndRaisesNothing)
{
    addManyClips(kClips);
    showList();
    window->List1->scrollToBottom();
    const QPoint place(50, window->List1->viewport()->height() - 5);
    QMouseEvent move(QEvent::MouseMove, place, window->List1->viewport()->mapToGlobal(place),
                     Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(window->List1->viewport(), &move);
    EXPECT_FALSE(reported.has_value());
}

} // namespace orvanta::test
