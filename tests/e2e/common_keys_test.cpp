// The keys that every player has, and the find box, in which letters are text.

#include "tests/e2e/support/steered.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class CommonKeys : public Steered
{
protected:
    void startLessons()
    {
        const QString clip = media(u"video200.mp4"_s);
        const QString packet = writeClips(
            file(u"lessons.vxl"_s),
            {{clip, u"Apple"_s}, {clip, u"Plum"_s}, {clip, u"Pear"_s}, {clip, u"Plum again"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(plays(u"start 1 1 Apple"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
        ASSERT_TRUE(comesBetween(0.01, 100));
    }

    [[nodiscard]] bool rowBecomes(int row)
    {
        return waitFor([=, this] { return window().currentRow() == row; });
    }
    [[nodiscard]] bool findTextBecomes(const QString& text)
    {
        return waitFor([&] { return window().findText() == text; });
    }
};

TEST_F(CommonKeys, SpaceAndArrowsSteerFromEitherWindow)
{
    playLesson();
    for (const QString& title : {kMainWindow, kVideoWindow}) {
        SCOPED_TRACE(title.toStdString());
        ASSERT_TRUE(desktop.activate(title));
        goTo(100);
        desktop.press(u"p"_s);
        ASSERT_TRUE(becomes(u"Paused"_s));
        const double before = controls.seconds();
        desktop.press(u"Right"_s);
        EXPECT_TRUE(comesBetween(before + 4.9, before + 5.1));
        desktop.press(u"Left"_s);
        desktop.press(u"Left"_s);
        EXPECT_TRUE(comesBetween(before - 5.1, before - 4.9));
        desktop.press(u"space"_s);
        EXPECT_TRUE(becomes(u"Playing"_s));
        desktop.press(u"space"_s);
        EXPECT_TRUE(becomes(u"Paused"_s));
        desktop.press(u"space"_s);
        EXPECT_TRUE(becomes(u"Playing"_s));
    }
}

TEST_F(CommonKeys, LettersInTheFindBoxAreTextAndEnterFinds)
{
    startLessons();
    desktop.press(u"ctrl+f"_s);
    const int volume = controls.volume();
    desktop.type(u"plum"_s);
    EXPECT_TRUE(findTextBecomes(u"plum"_s));
    desktop.press(u"Return"_s);
    EXPECT_TRUE(rowBecomes(3));
    desktop.press(u"Return"_s);
    EXPECT_TRUE(rowBecomes(5));
    // Ctrl+F takes what is there for what is typed next to replace.
    desktop.press(u"ctrl+f"_s);
    desktop.type(u"pst -b"_s);
    EXPECT_TRUE(findTextBecomes(u"pst -b"_s));
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(controls.volume(), volume);
    EXPECT_LT(controls.seconds(), 60);
    EXPECT_EQ(controls.title(), u"Apple"_s);
    // Under the Cyrillic layout the letters of that layout are typed, and Ctrl+F is the same key.
    desktop.setKeyboard(u"ru"_s);
    press(Key::M);
    EXPECT_TRUE(findTextBecomes(u"pst -bь"_s));
    desktop.run(u"xdotool"_s, {u"key"_s, u"ctrl+41"_s});
    press(Key::P);
    EXPECT_TRUE(findTextBecomes(u"з"_s));
    EXPECT_TRUE(isPlaying());
}

TEST_F(CommonKeys, EnterInTheListStartsTheLineAndArrowsMoveInIt)
{
    startLessons();
    window().doubleClickRow(3);
    ASSERT_TRUE(plays(u"start 1 2 Plum"_s));
    desktop.press(u"Down"_s);
    EXPECT_TRUE(rowBecomes(4));
    desktop.press(u"Return"_s);
    EXPECT_TRUE(plays(u"start 1 3 Pear"_s));
    // Letters are commands there, too.
    ASSERT_TRUE(becomes(u"Playing"_s));
    desktop.press(u"p"_s);
    EXPECT_TRUE(becomes(u"Paused"_s));
}

TEST_F(CommonKeys, OpenShowsThePickerAndQuitEndsTheProgramThatCloseWouldHide)
{
    home.setOption(u"nc"_s, true);
    startLessons();
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"ctrl+o"_s);
    // The picker is called as the main window is.
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 2; }));
    desktop.press(u"Escape"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"ctrl+q"_s);
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(CommonKeys, QuitInTheVideoWindowEndsTheProgramUnderTheCyrillicLayoutToo)
{
    startLessons();
    desktop.setKeyboard(u"ru"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kVideoWindow) == 1; }));
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    desktop.run(u"xdotool"_s, {u"key"_s, u"ctrl+24"_s});
    EXPECT_EQ(program.statusAtEnd(), 0);
}

} // namespace orvanta::e2e
