// Play, Pause, Stop, and the looks of their buttons.

#include "tests/window/window_fixture.h"
#include "window/clip_line.h"

namespace orvanta::test {

class Transport : public Form2Test
{
protected:
    void showClips()
    {
        addClips(u"clips"_s, {u"one"_s, u"two"_s});
        showList();
    }

    void showBrakes()
    {
        addBrakes(u"brakes"_s, {u"2"_s, u"4.5"_s, u"9"_s});
        showList();
    }
};

TEST_F(Transport, StopIsIgnoredWhileNoClipIsLoaded)
{
    showClips();
    const SkinPicture play = window->Image5->picture();
    click(window->Image4);
    EXPECT_FALSE(window->Image3->isEnabled());
    EXPECT_EQ(window->Image5->picture(), play);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Transport, PlayIsLitWhereItDoesSomethingAndBeginsWithTheLineUnderTheCursor)
{
    show();
    engine->tick();
    EXPECT_FALSE(window->Image5->isEnabled());
    showClips();
    engine->tick();
    EXPECT_TRUE(window->Image5->isEnabled());
    window->List1->setCursorLine(3);
    click(window->Image5);
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    EXPECT_EQ(control.calls.filter(u"load /"_s).size(), 1);
}

TEST_F(Transport, PauseThenPlayExchangesStatesAndPictures)
{
    showClips();
    const SkinPicture play = window->Image5->picture();
    const SkinPicture playOff = window->Image15->picture();
    const SkinPicture pauseOff = window->Image3->picture();
    const SkinPicture pause = window->Image17->picture();
    ASSERT_TRUE(start(1, 1));
    EXPECT_FALSE(window->Image5->isEnabled());
    EXPECT_TRUE(window->Image3->isEnabled());
    EXPECT_EQ(window->Image5->picture(), playOff);
    EXPECT_EQ(window->Image15->picture(), play);
    EXPECT_EQ(window->Image3->picture(), pause);
    EXPECT_EQ(window->Image17->picture(), pauseOff);

    click(window->Image3);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_TRUE(window->Image5->isEnabled());
    EXPECT_FALSE(window->Image3->isEnabled());
    EXPECT_EQ(window->Image5->picture(), play);
    EXPECT_EQ(window->Image3->picture(), pauseOff);

    engine->tick();
    click(window->Image5);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(window->Image5->picture(), playOff);
    EXPECT_EQ(window->Image3->picture(), pause);
}

TEST_F(Transport, StopInAClipListStopsAndResetsTheDisplay)
{
    showClips();
    ASSERT_TRUE(start(1, 1));
    control.playTo(4);
    engine->tick();
    ASSERT_GT(window->Slider1->value(), 0);
    click(window->Image4);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(window->Slider1->value(), 0);
    EXPECT_EQ(window->Label1->text(), u"0.00");
    EXPECT_TRUE(window->Image5->isEnabled());
    EXPECT_FALSE(window->Image3->isEnabled());
}

TEST_F(Transport, StopInABrakePacketWaitsAtTheCurrentBrake)
{
    showBrakes();
    ASSERT_TRUE(start(1, 2));
    control.playTo(6);
    engine->tick();
    click(window->Image4);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_EQ(control.CurrentPosition(), 4.5);
    EXPECT_EQ(window->Label1->text(), u"0.00");
    EXPECT_TRUE(window->Image5->isEnabled());
}

TEST_F(Transport, TheRunningClipsTextIsShown)
{
    showClips();
    ASSERT_TRUE(start(1, 2));
    EXPECT_EQ(window->Text2->text(), u"two");
    EXPECT_EQ(window->List1->cursorLine(), 3);
}

TEST_F(Transport, TheKeyboardFocusFollowsFromPauseToPlayAndBack)
{
    showClips();
    ASSERT_TRUE(start(1, 1));
    window->activateWindow();
    window->Image3->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window->Image3, Qt::Key_Space);
    EXPECT_EQ(window->focusWidget(), window->Image5);
    engine->tick();
    QTest::keyClick(window->Image5, Qt::Key_Return);
    EXPECT_EQ(window->focusWidget(), window->Image3);
}

TEST_F(Transport, TheTickOfTheWindowsTimerShowsThePosition)
{
    showClips();
    ASSERT_TRUE(start(1, 1));
    control.playTo(2.5);
    window->Timer1.start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->Slider1->value() == 25; }));
}

TEST_F(Transport, TheClipsTextIsTheMostProminent)
{
    showClips();
    const int clip = window->Text2->font().pixelSize();
    for (const QWidget* other : window->findChildren<QWidget*>()) {
        if (other != window->Text2) {
            EXPECT_LT(other->fontInfo().pixelSize(), clip) << qPrintable(other->objectName());
        }
    }
}

TEST_F(Transport, ALongClipTextCanBeReadToItsEnd)
{
    showClips();
    window->setClipText(QString(300, u'w') + u" end"_s);
    EXPECT_EQ(window->Text2->cursorPosition(), 0);
    window->Text2->setFocus();
    QTest::keyClick(window->Text2, Qt::Key_End);
    EXPECT_EQ(window->Text2->cursorPosition(), 304);
    EXPECT_TRUE(window->Text2->isReadOnly());
}

TEST_F(Transport, AMessageInTheCurrentClipsBoxGivesWayToTheTextAgain)
{
    show();
    window->setClipText(u"one"_s);
    window->Text2->sayForAMoment(u"said"_s);
    EXPECT_EQ(window->Text2->text(), u"said");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->Text2->text() == u"one"; }, 20000));
    window->Text2->sayForAMoment(u"said"_s);
    window->setClipText(u"two"_s); // another clip begins meanwhile
    EXPECT_EQ(window->Text2->text(), u"two");
}

} // namespace orvanta::test
