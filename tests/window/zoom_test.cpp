// The size of the main window's texts.
#include "tests/window/window_fixture.h"
#include "window/text_zoom.h"

#include <QMouseEvent>

namespace orvanta::test {

TEST(TextZoom, GoesThroughItsStepsAndStaysAtTheirEnds)
{
    EXPECT_EQ(largerZoom(100), 110);
    EXPECT_EQ(smallerZoom(100), 90);
    EXPECT_EQ(smallerZoom(90), 90);
    EXPECT_EQ(largerZoom(300), 300);
    EXPECT_EQ(largerZoom(130), 150);
    EXPECT_EQ(smallerZoom(130), 125);
    EXPECT_EQ(zoomInRange(7), 90);
    EXPECT_EQ(zoomInRange(9999), 300);
}

TEST(TextZoom, FollowsADesktopsLargerFontAndNoSmallerOne)
{
    EXPECT_DOUBLE_EQ(zoomOfDesktop(9), 1);
    EXPECT_DOUBLE_EQ(zoomOfDesktop(14), 1);
    EXPECT_DOUBLE_EQ(zoomOfDesktop(21), 1.5);
    EXPECT_DOUBLE_EQ(zoomOfDesktop(400), 2);
}

class ZoomedWindow : public Form2Test
{
protected:
    void press(Qt::Key key) { QTest::keyClick(window->List1, key, Qt::ControlModifier); }
};

TEST_F(ZoomedWindow, GrowsWithItsKeysAndComesBack)
{
    addThreePackets();
    showList();
    const int text = window->Text2->font().pixelSize();
    EXPECT_EQ(window->List1->rowHeight(), 13);
    press(Qt::Key_Plus);
    press(Qt::Key_Equal);
    press(Qt::Key_Plus);
    EXPECT_EQ(window->List1->rowHeight(), 20); // 13 times 1.5, to whole pixels
    EXPECT_EQ(window->List1->visualRect(window->List1->model()->index(1, 0)).height(), 20);
    EXPECT_GT(window->Text2->font().pixelSize(), text);
    press(Qt::Key_Minus);
    EXPECT_EQ(window->List1->rowHeight(), 16);
    press(Qt::Key_0);
    EXPECT_EQ(window->List1->rowHeight(), 13);
    EXPECT_EQ(window->Text2->font().pixelSize(), text);
}

TEST_F(ZoomedWindow, IsAsLargeAtTheNextStart)
{
    show();
    press(Qt::Key_Plus);
    press(Qt::Key_Plus);
    const int height = window->List1->rowHeight();
    show();
    EXPECT_EQ(window->List1->rowHeight(), height);
}

TEST_F(ZoomedWindow, HasTheToolTipOfTheRowUnderThePointer)
{
    addThreePackets();
    showList();
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Plus);
    }
    ASSERT_EQ(window->List1->rowHeight(), 26);
    const QRect row = window->List1->visualRect(window->List1->model()->index(3, 0));
    const QPoint place(50, row.center().y());
    QMouseEvent move(QEvent::MouseMove, place, window->List1->viewport()->mapToGlobal(place),
                     Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(window->List1->viewport(), &move);
    EXPECT_TRUE(window->List1->toolTip().contains(u"two"_s))
        << qPrintable(window->List1->toolTip());
}

TEST_F(ZoomedWindow, TogglesTheBoxThatIsClicked)
{
    addThreePackets();
    showList();
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Plus);
    }
    clickListAt(boxOfRow(3));
    EXPECT_FALSE(window->isLineChecked(3));
    clickListAt(textOfRow(3));
    EXPECT_FALSE(window->isLineChecked(3));
}

} // namespace orvanta::test
