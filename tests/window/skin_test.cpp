// The skin's own widgets: button and slider.

#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QAccessible>
#include <QDir>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class Slider : public testing::Test
{
protected:
    Slider()
    {
        slider.resize(214, 24); // a groove of 200 pixels from 7 to 207
        slider.setValue(50);
        slider.show();
    }

    static QPoint at(int percent) { return {7 + 2 * percent, 12}; }

    SkinSlider slider{SkinSlider::Fill::FromLeft, 5, nullptr};
    QSignalSpy changed{&slider, &SkinSlider::userChanged};
    QSignalSpy committed{&slider, &SkinSlider::committed};
    QSignalSpy ended{&slider, &SkinSlider::interactionEnded};
};

TEST_F(Slider, SettingTheValueIsSilentAndKeepsItInRange)
{
    slider.setValue(20);
    slider.setValue(140);
    EXPECT_EQ(slider.value(), 100);
    slider.setValue(-3);
    EXPECT_EQ(slider.value(), 0);
    EXPECT_TRUE(changed.isEmpty() && committed.isEmpty() && ended.isEmpty());
}

TEST_F(Slider, APressOnTheGrooveJumpsThere)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(80));
    EXPECT_EQ(slider.value(), 80);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(committed.count(), 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(80));
    EXPECT_EQ(committed.count(), 1);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Slider, AKnobThatIsTakenBesideItsCentreDoesNotJump)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(50) + QPoint(4, 0));
    EXPECT_EQ(slider.value(), 50);
    QTest::mouseMove(&slider, at(60) + QPoint(4, 0));
    EXPECT_EQ(slider.value(), 60);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(60) + QPoint(4, 0));
}

TEST_F(Slider, AClickOnTheKnobCommitsNothing)
{
    QTest::mouseClick(&slider, Qt::LeftButton, {}, at(50));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(committed.count(), 0);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Slider, ADragCommitsOnceAtItsEnd)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(50));
    for (const int place : {55, 60, 65}) {
        QTest::mouseMove(&slider, at(place));
    }
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(committed.count(), 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(65));
    EXPECT_EQ(committed.count(), 1);
    EXPECT_EQ(committed.first().first().toDouble(), 65);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Slider, EveryKeyStepIsAChangeACommitAndAnEnd)
{
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 55);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(committed.count(), 1);
    EXPECT_EQ(ended.count(), 1);
    QTest::keyClick(&slider, Qt::Key_Home);
    EXPECT_EQ(slider.value(), 0);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(Slider, KeysThatAreNotItsOwnPassOn)
{
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_P, Qt::NoModifier, u"p"_s);
    QCoreApplication::sendEvent(&slider, &letter);
    EXPECT_FALSE(letter.isAccepted());
}

TEST_F(Slider, WheelNotchesAreStepsAndFinerTurnsAddUp)
{
    const auto turn = [this](int eighths) {
        QWheelEvent event({100, 12}, {100, 12}, {}, {0, eighths}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
    };
    turn(120);
    EXPECT_EQ(slider.value(), 55);
    EXPECT_EQ(committed.count(), 1);
    turn(-60);
    EXPECT_EQ(slider.value(), 55);
    turn(-60);
    EXPECT_EQ(slider.value(), 50);
    EXPECT_EQ(ended.count(), 2);
}

TEST_F(Slider, HidingEndsADragWithoutACommit)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(80));
    slider.hide();
    EXPECT_EQ(committed.count(), 0);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Slider, AssistiveTechnologySeesAndMovesIt)
{
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    QAccessibleValueInterface* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 50);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    value->setCurrentValue(30);
    EXPECT_EQ(slider.value(), 30);
    EXPECT_EQ(committed.count(), 1);
}

class Button : public testing::Test
{
protected:
    Button() { button.show(); }

    QColor face() { return button.grab().toImage().pixelColor(16, 4); }

    SkinButton button{SkinButton::Face::Raised, 32, {u"stop"_s, skin::kText}, nullptr};
};

TEST_F(Button, LooksDifferentInEveryState)
{
    const QColor normal = face();
    button.setDown(true);
    const QColor pressed = face();
    button.setDown(false);
    button.setEnabled(false);
    const QColor disabled = face();
    button.setEnabled(true);
    EXPECT_NE(normal, pressed);
    EXPECT_NE(normal, disabled);
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(face(), normal);
}

TEST_F(Button, ShowsTheKeyboardFocus)
{
    button.activateWindow();
    const QImage before = button.grab().toImage();
    button.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(QTest::qWaitFor([this] { return button.hasFocus(); }));
    EXPECT_NE(button.grab().toImage(), before);
}

TEST_F(Button, IsPressedByMouseSpaceAndReturn)
{
    QSignalSpy clicked(&button, &SkinButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 3);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 3);
}

TEST_F(Button, ExchangingTwiceGivesThePicturesBack)
{
    const SkinPicture first = button.picture();
    const SkinPicture second{u"play"_s, skin::kAccent};
    PictureHolder other(second, nullptr);
    PictureHolder scratch({}, nullptr);
    exchangePictures(button, other, scratch);
    EXPECT_EQ(button.picture(), second);
    EXPECT_EQ(other.picture(), first);
    exchangePictures(button, other, scratch);
    EXPECT_EQ(button.picture(), first);
    EXPECT_FALSE(other.isVisible());
}

TEST(Pictures, EveryDrawingOfTheFamilyIsBuiltInAndDrawsSomething)
{
    const QDir drawings(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/icons/ui"));
    const QStringList files = drawings.entryList({u"*.svg"_s});
    EXPECT_GE(files.size(), 13);
    for (const QString& file : files) {
        const QString name = file.chopped(4);
        const QImage image = skin::picture(name, Qt::red, 16, 1).toImage();
        int painted = 0;
        for (int i = 0; i < 16 * 16; ++i) {
            painted += image.pixelColor(i % 16, i / 16).alpha() > 128 ? 1 : 0;
        }
        EXPECT_GT(painted, 5) << qPrintable(name);
    }
}

TEST(Pictures, AreDrawnInTheWantedColourAndScale)
{
    const QPixmap pixmap = skin::picture(u"stop"_s, Qt::red, 16, 2);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.toImage().pixelColor(16, 16), QColor(Qt::red));
}

} // namespace orvanta::test
