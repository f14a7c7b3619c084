// Brake mode: the slider, the preview, and what they do to the brakes.

#include "editors/preview_pane.h"
#include "tests/editors/brake_mode.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>

namespace orvanta::test {

TEST_F(BrakeMode, AnOpenedClipGivesTheSliderItsLength)
{
    openClip();
    EXPECT_EQ(editor->Label2->text(), u"120"_s);
    EXPECT_EQ(editor->Slider1->seconds(), 0);
    EXPECT_EQ(editor->Slider1->maximum(), 120000);
    EXPECT_NE(preview->CurrentState(), MediaControl::Running);
}

TEST_F(BrakeMode, TheSliderStepsByKeyboardToATenthOfASecond)
{
    openClip();
    key(Qt::Key_Right);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0.1);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 1.1);
    key(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 11.1);
    key(Qt::Key_PageDown);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0);
    key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 0);
    key(Qt::Key_End);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 120);
}

TEST_F(BrakeMode, AStepStopsThePreviewGoesThereAndRunsIt)
{
    openClip();
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(preview->calls, QStringList({u"Stop"_s, u"seek 1"_s, u"Run"_s}));
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    EXPECT_EQ(editor->Label1->text(), u"1.000"_s);
}

TEST_F(BrakeMode, ADragShowsNearPicturesAndSeeksExactlyOnceAtItsEnd)
{
    openClip();
    drag({0.2, 0.4, 0.6});
    EXPECT_EQ(preview->calls.filter(u"seek"_s).size(), 1);
    EXPECT_EQ(preview->calls.last(), u"Run"_s);
    EXPECT_GE(preview->calls.filter(u"preview"_s).size(), 3);
}

TEST_F(BrakeMode, AHandleThatRestsShowsThePictureRightThere)
{
    openClip();
    dragAndHold({0.2, 0.5});
    const QString exact = u"seek %1"_s.arg(editor->Slider1->seconds());
    EXPECT_FALSE(preview->calls.contains(exact));
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview->calls.contains(exact); }))
        << preview->calls.join(u' ').toStdString();
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
}

TEST_F(BrakeMode, MovingTheSliderMovesTheSelectedBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s, u"000020.00{}b"_s});
    clickRow(editor->List2, 1);
    key(Qt::Key_Right);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s, u"000020.10{}b"_s}));
    drag({0.5});
    EXPECT_EQ(brakes().at(0), u"000010.00{}a"_s);
    EXPECT_NE(brakes().at(1), u"000020.10{}b"_s);
}

TEST_F(BrakeMode, TheLastOfFiveHundredBrakesOfAnHourIsSetToATenthOfASecond)
{
    previewSeconds = 3600;
    openClip();
    QStringList many;
    for (int i = 0; i < 500; ++i) {
        many.append(u"%1.00{}brake"_s.arg(i * 7, 6, 10, QChar(u'0')));
    }
    setBrakes(many);
    clickRow(editor->List2, 499);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    EXPECT_EQ(brakes().last(), u"003493.20{}brake"_s);
    EXPECT_EQ(brakes().mid(0, 499), many.mid(0, 499));
}

TEST_F(BrakeMode, MovingTheSliderWithNothingSelectedMovesNoBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    key(Qt::Key_PageUp);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s}));
}

TEST_F(BrakeMode, ChangesOfTheSliderByTheProgramRewriteNoBrake)
{
    openClip();
    setBrakes({u"5{}a"_s, u"6{}b"_s}, 0);
    // Another clip is opened while a brake is selected: the slider goes back to 0.
    preview->setFileName(room(u"clip.avi"_s));
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview->isReady(); }));
    EXPECT_EQ(editor->Slider1->seconds(), 0);
    clickRow(editor->List2, 1);
    EXPECT_EQ(editor->Slider1->seconds(), 6);
    EXPECT_EQ(brakes(), QStringList({u"5{}a"_s, u"6{}b"_s}));
}

TEST_F(BrakeMode, ABrakeThatIsClickedBeforeItsClipIsOpenKeepsItsTimeWhenItsTextIsTyped)
{
    openClip();
    setBrakes({u"000005.00{}a"_s, u"000006.00{}b"_s});
    preview->setFileName(room(u"clip.avi"_s));
    clickRow(editor->List2, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview->isReady(); }));
    typeOver(editor->Text4, u"c"_s);
    EXPECT_EQ(brakes(), QStringList({u"000005.00{}a"_s, u"000006.00{}c"_s}));
}

TEST_F(BrakeMode, ClickingABrakeWithNoClipOpenKeepsItsTime)
{
    open();
    setBrakes({u"000075.40{}a"_s});
    clickRow(editor->List2, 0);
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}a"_s}));
    typeOver(editor->Text4, u"b"_s);
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}b"_s}));
    EXPECT_TRUE(preview.isNull());
}

TEST_F(BrakeMode, WithNoClipOpenTheSliderMovesNoBrake)
{
    open();
    setBrakes({u"000075.40{}a"_s});
    clickRow(editor->List2, 0);
    key(Qt::Key_Right);
    key(Qt::Key_Home);
    drag({0.2, 0.7});
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}a"_s}));
}

TEST_F(BrakeMode, TheWheelMovesTheSliderByASecondAndOnlyUpAndDown)
{
    openClip();
    setBrakes({u"5{}a"_s}, 0);
    const auto turn = [&](QPoint angle) {
        QWheelEvent wheel(QPointF(5, 5), editor->Slider1->mapToGlobal(QPointF(5, 5)), {}, angle,
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(editor->Slider1, &wheel);
    };
    turn({120, 0});
    EXPECT_EQ(brakes(), QStringList({u"5{}a"_s}));
    EXPECT_EQ(preview->calls, QStringList());
    turn({0, 120});
    EXPECT_EQ(brakes(), QStringList({u"000001.00{}"_s}));
}

TEST_F(BrakeMode, AClipThatCannotBeOpenedLeavesTheSliderNowhereToGo)
{
    openClip();
    key(Qt::Key_PageUp);
    preview->refusedFiles.append(room(u"clip.avi"_s));
    clickRow(editor->File2, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor->Label2->text() == u"0"_s; }));
    EXPECT_EQ(editor->Slider1->maximum(), 0);
    EXPECT_EQ(editor->Label1->text(), u"0.000"_s);
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(BrakeMode, AFileDeletedSinceItWasListedOpensNothing)
{
    openClip();
    QFile::remove(room(u"clip.avi"_s));
    clickRow(editor->File2, 0);
    EXPECT_EQ(preview->FileName(), QString());
    EXPECT_EQ(editor->Label2->text(), u"0"_s);
    EXPECT_EQ(editor->Text3->text(), room(u"clip.avi"_s));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(BrakeMode, APacketWhoseClipIsGoneDoesNotKeepTheLengthOfTheClipBefore)
{
    openClip();
    pickers.answer = {put(u"in.vxl"_s, "[main]\nfile=/gone.avi\nbrakes=1\n"
                                       "[brake1]\ntime=000075.40\ntext=A\n")};
    press(editor->Command7);
    EXPECT_EQ(editor->Label2->text(), u"0"_s);
    clickRow(editor->List2, 0);
    key(Qt::Key_Home);
    EXPECT_EQ(brakes(), QStringList({u"000075.40{}A"_s}));
}

TEST_F(BrakeMode, AClickOnThePictureHaltsThePreviewAndLetsItGoOn)
{
    openClip();
    QTest::mouseClick(editor->ActiveMovie1, Qt::LeftButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    QTest::mouseClick(editor->ActiveMovie1, Qt::LeftButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
}

TEST_F(BrakeMode, TheSliderFollowsTheRunningPreviewAndMovesNoBrake)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    clickRow(editor->List2, 0);
    preview->playTo(12.5);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), 12.5);
    EXPECT_EQ(editor->Label1->text(), u"12.500"_s);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}a"_s}));
    typeOver(editor->Text4, u"b"_s);
    EXPECT_EQ(brakes(), QStringList({u"000010.00{}b"_s}));
    EXPECT_EQ(preview->calls, QStringList({u"Stop"_s, u"seek 10"_s, u"Run"_s}));
}

TEST_F(BrakeMode, AValueSetByAssistiveTechnologyMovesTheSliderAsTheUserDoes)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    clickRow(editor->List2, 0);
    preview->calls.clear();
    QAccessibleInterface* slider = QAccessible::queryAccessibleInterface(editor->Slider1);
    ASSERT_NE(slider, nullptr);
    ASSERT_NE(slider->valueInterface(), nullptr);
    slider->valueInterface()->setCurrentValue(15500);
    EXPECT_EQ(brakes(), QStringList({u"000015.50{}a"_s}));
    EXPECT_EQ(preview->calls, QStringList({u"Stop"_s, u"seek 15.5"_s, u"Run"_s}));
    EXPECT_EQ(editor->Label1->text(), u"15.500"_s);
}

TEST_F(BrakeMode, AddKeyTakesThePlaceThatIsHeard)
{
    openClip();
    press(editor->PreviewButton);
    preview->playTo(7.25);
    press(editor->Command15);
    preview->playTo(9);
    press(editor->PreviewButton);
    press(editor->Command15);
    EXPECT_EQ(brakes(), QStringList({u"000007.25{}"_s, u"000009.00{}"_s}));
}

TEST_F(BrakeMode, ASliderThatIsHeldDoesNotFollow)
{
    openClip();
    press(editor->PreviewButton);
    dragAndHold({0.5});
    const double held = editor->Slider1->seconds();
    preview->forceState(MediaControl::Running);
    preview->playTo(3);
    EXPECT_DOUBLE_EQ(editor->Slider1->seconds(), held);
}

TEST_F(BrakeMode, SpaceAndAButtonHaltThePreviewAndLetItGoOn)
{
    openClip();
    setBrakes({u"000010.00{}a"_s});
    key(Qt::Key_Space);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    key(Qt::Key_Space);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
    press(editor->PreviewButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Running);
    press(editor->PreviewButton);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
    clickRow(editor->List2, 0);
    ASSERT_EQ(preview->CurrentState(), MediaControl::Running);
    QTest::keyClick(editor->List2, Qt::Key_Space);
    EXPECT_EQ(preview->CurrentState(), MediaControl::Paused);
    EXPECT_EQ(editor->List2->list().selected, 0);
}

TEST_F(BrakeMode, SpaceInTheTextOfABrakeIsABlank)
{
    openClip();
    typeOver(editor->Text4, u"a b"_s);
    EXPECT_EQ(editor->Text4->text(), u"a b"_s);
    EXPECT_NE(preview->CurrentState(), MediaControl::Running);
}

TEST_F(BrakeMode, TheButtonOfThePreviewCanBePressedOnlyWithAClip)
{
    open();
    EXPECT_FALSE(editor->PreviewButton->isEnabled());
    openClip();
    EXPECT_TRUE(editor->PreviewButton->isEnabled());
    preview->refusedFiles.append(room(u"clip.avi"_s));
    clickRow(editor->File2, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !editor->PreviewButton->isEnabled(); }));
}

} // namespace orvanta::test
