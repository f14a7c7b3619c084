// The menus of the playlist and of the video window, by mouse and by keyboard.

#include "tests/e2e/support/steered.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class MenusOfProgram : public Steered
{
protected:
    void startLessons()
    {
        const QString clip = media(u"video200.mp4"_s);
        const QString packet = writeClips(
            file(u"lessons.vxl"_s), {{clip, u"Apple"_s}, {clip, u"Plum"_s}, {clip, u"Pear"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(plays(u"start 1 1 Apple"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
        ASSERT_TRUE(comesBetween(0.01, 100));
        ASSERT_TRUE(waitFor([this] { return !videoPlace().isEmpty(); }));
    }

    void rightClick(QPoint place)
    {
        desktop.moveMouse(place);
        desktop.run(u"xdotool"_s, {u"click"_s, u"3"_s});
    }
    [[nodiscard]] bool menuOpens()
    {
        return waitFor([this] { return desktop.openMenus() == 1; });
    }
    [[nodiscard]] bool menuCloses()
    {
        return waitFor([this] { return desktop.openMenus() == 0; });
    }
    /// A menu hears the keyboard only some time after it can be seen: again until it has. Each
    /// time it is given time to close, since the next window would hear the key as well.
    [[nodiscard]] bool chooseByAccessKey(const QString& key)
    {
        constexpr int kClosingMs = 3000;
        for (int i = 0; i < 10; ++i) {
            desktop.press(key);
            if (waitFor([this] { return desktop.openMenus() == 0; }, kClosingMs)) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(MenusOfProgram, TheMenuKeyAndShiftF10InTheListOpenItsMenu)
{
    startLessons();
    window().doubleClickRow(3);
    ASSERT_TRUE(plays(u"start 1 2 Plum"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    desktop.press(u"Down"_s);
    ASSERT_TRUE(waitFor([this] { return window().currentRow() == 4; }));
    desktop.press(u"Menu"_s);
    ASSERT_TRUE(menuOpens());
    EXPECT_TRUE(chooseByAccessKey(u"p"_s));
    EXPECT_TRUE(plays(u"start 1 3 Pear"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    desktop.press(u"shift+F10"_s);
    ASSERT_TRUE(menuOpens());
    EXPECT_TRUE(chooseByAccessKey(u"a"_s));
    EXPECT_TRUE(becomes(u"Paused"_s));
}

TEST_F(MenusOfProgram, TheRightButtonInTheVideoWindowSteersAlsoInFullScreen)
{
    startLessons();
    rightClick(videoPlace().center());
    ASSERT_TRUE(menuOpens());
    // The first entry lies right below the pointer, and the mouse is heard at once.
    desktop.click(videoPlace().center() + QPoint(30, 16));
    EXPECT_TRUE(becomes(u"Paused"_s));
    ASSERT_TRUE(menuCloses());

    controls.setFullScreen(true);
    ASSERT_TRUE(waitFor([this] { return videoFillsScreen(); }));
    ASSERT_TRUE(waitFor([this] { return !desktop.isPointerVisible(); }));
    rightClick({300, 300});
    ASSERT_TRUE(menuOpens());
    EXPECT_TRUE(waitFor([this] { return desktop.isPointerVisible(); }));
    EXPECT_TRUE(videoFillsScreen());
    EXPECT_TRUE(controls.isFullScreen());
    EXPECT_TRUE(chooseByAccessKey(u"a"_s));
    EXPECT_TRUE(becomes(u"Playing"_s));
    EXPECT_TRUE(waitFor([this] { return !desktop.isPointerVisible(); }));
    EXPECT_TRUE(videoFillsScreen());
}

} // namespace orvanta::e2e
