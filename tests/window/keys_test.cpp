// The main window's keys: which reach it, and what it does itself.
#include "tests/window/window_fixture.h"

namespace orvanta::test {
namespace {

class KeysTest : public Form2Test
{
protected:
    /// The first of two clips runs at 100 s of 600; the list has the focus.
    void playOne()
    {
        addClips(u"packet"_s, {u"one"_s, u"two"_s});
        control.duration = 600.0;
        showList();
        ASSERT_TRUE(start(1, 1));
        control.playTo(100.0);
        engine->tick();
        window->List1->setFocus();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window.get(), key, modifiers);
    }
    void type(char letter) { QTest::keyClick(window->focusWidget(), letter); }
};

TEST_F(KeysTest, LettersActWithTheListTheSlidersOrAButtonFocused)
{
    playOne();
    for (QWidget* focused : std::initializer_list<QWidget*>{window->List1, window->Slider2,
                                                            window->Image8, window->Text2}) {
        focused->setFocus();
        type('p');
        EXPECT_EQ(control.CurrentState(), MediaControl::Paused)
            << qPrintable(focused->objectName());
        type('R');
        EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    }
}

TEST_F(KeysTest, TheMediaKeysActInTheFindBoxToo)
{
    playOne();
    window->Text1->setFocus();
    press(Qt::Key_MediaPlay);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    press(Qt::Key_MediaNext);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 2);
    press(Qt::Key_MediaPrevious);
    EXPECT_EQ(module.playlist.CurrentClip.value(), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == MediaControl::Running; }));
    press(Qt::Key_MediaStop);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
}

TEST_F(KeysTest, LettersTypedIntoTheFindBoxAreText)
{
    playOne();
    window->Text1->setFocus();
    for (const char letter : {'p', 's', 'f', '+'}) {
        type(letter);
    }
    EXPECT_EQ(window->Text1->text(), u"psf+"_s);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_FALSE(screen.on);
}

TEST_F(KeysTest, PlusAndMinusMoveTheVolumeSliderByFive)
{
    playOne();
    window->Slider2->setValue(60);
    engine->volumeMoved(60);
    type('+');
    EXPECT_EQ(window->Slider2->value(), 65);
    type('-');
    type('-');
    EXPECT_EQ(window->Slider2->value(), 55);
}

TEST_F(KeysTest, FAndNSwitchFullScreen)
{
    playOne();
    type('f');
    EXPECT_TRUE(screen.on);
    type('N');
    EXPECT_FALSE(screen.on);
    press(Qt::Key_F11);
    EXPECT_TRUE(screen.on);
    press(Qt::Key_Escape);
    EXPECT_FALSE(screen.on);
}

TEST_F(KeysTest, SpacePausesAndPlaysAlsoInTheListAfterItsArrowKeys)
{
    playOne();
    press(Qt::Key_Space);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    window->setListIndex(1);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_TRUE(window->isLineChecked(2));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(window->isLineChecked(2));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    window->Text2->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    press(Qt::Key_Space);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(KeysTest, TheArrowsSeekByFiveSecondsFromTheListToo)
{
    playOne();
    press(Qt::Key_Right);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 105.0);
    press(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    press(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(KeysTest, TheArrowsSeekFromAButtonTooAndLeaveTheFocusThere)
{
    playOne();
    window->Image10->setFocus();
    press(Qt::Key_Right);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 105.0);
    press(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    EXPECT_TRUE(window->Image10->hasFocus());
}

TEST_F(KeysTest, AnArrowOnASliderIsTheSlidersOwn)
{
    playOne();
    window->Slider3->setFocus();
    const double before = window->Slider3->value();
    press(Qt::Key_Right);
    EXPECT_GT(window->Slider3->value(), before);
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(KeysTest, CommandsOpenFindAndQuit)
{
    playOne();
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(pickers.calls.last(), u"open *.vxl;*.vxg"_s);
    press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(pickers.calls.last(), u"open several "_s + module.TypePattern);
    window->Text1->setText(u"two"_s);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(window->Text1->hasFocus());
    EXPECT_EQ(window->Text1->selectedText(), u"two"_s);
    EXPECT_FALSE(screen.on);
    option("nc");
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(othersUnloaded);
}

TEST_F(KeysTest, TheTextOverThePictureGoesOnByOneLevelFromTheListToo)
{
    show();
    window->List1->setFocus();
    press(Qt::Key_F5);
    EXPECT_EQ(textLevels, 1);
}

TEST_F(KeysTest, ABookmarkIsNotStoredWhileNothingIsLoaded)
{
    show();
    window->List1->setFocus();
    const auto settings = [this] {
        QFile file(module.IniPath);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    WriteIni(u"pos"_s, u"one"_s, u"11"_s, module.IniPath);
    const QByteArray before = settings();
    for (const char letter : {'k', 'K'}) {
        type(letter);
    }
    EXPECT_EQ(settings(), before);
}

TEST_F(KeysTest, KeysDoNothingWhileNothingIsLoaded)
{
    show();
    window->List1->setFocus();
    for (const char letter : {'b', 'f', 'k', 'l', 'm', 'n', 'p', 'r', 's'}) {
        type(letter);
    }
    press(Qt::Key_Right);
    EXPECT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    EXPECT_FALSE(reported.has_value());
}

} // namespace
} // namespace orvanta::test
