// The picture on a desktop that blends windows with what lies behind them.

#include "tests/e2e/support/screen_colours.h"
#include "tests/e2e/support/steered.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class DesktopThatBlends : public Steered
{
protected:
    DesktopThatBlends()
        : Steered({.windowManager = false, .compositor = u"sway"_s})
    {}

    void playRed()
    {
        const QString lesson = writeClips(file(u"red.vxl"_s), {{media(u"red20.mp4"_s), u"Red"_s}});
        ASSERT_TRUE(program.startAndShow({lesson}));
        ASSERT_TRUE(plays(u"start 1 1 Red"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
    }
};

TEST_F(DesktopThatBlends, TheGroundIsSeenWhereNoWindowIs)
{
    ASSERT_TRUE(waitFor([this] { return qBlue(desktop.screenOfSway().pixel(5, 5)) > 200; }));
}

TEST_F(DesktopThatBlends, ThePictureIsSeenAsItIsInItsWindow)
{
    playRed();
    constexpr int kLeast = 100 * 100;
    EXPECT_TRUE(waitFor([this] { return coloursOf(desktop.screenOfSway()).red > kLeast; }));
}

TEST_F(DesktopThatBlends, APictureDrawnByOpenGlIsSeenAsItIs)
{
    writeBytes(home.file(u"platform.ini"_s), "[picture]\nrenderer=opengl\n");
    playRed();
    constexpr int kLeast = 100 * 100;
    EXPECT_TRUE(waitFor([this] { return coloursOf(desktop.screenOfSway()).red > kLeast; }));
    EXPECT_EQ(program.linesMatching(u"pictures are drawn by OpenGL"_s).size(), 1);
    EXPECT_EQ(program.linesMatching(u"OpenGL is not used"_s), QStringList());
}

TEST_F(DesktopThatBlends, AStillPictureIsSeenAsItIs)
{
    QImage still(320, 240, QImage::Format_RGB32);
    still.fill(Qt::red);
    ASSERT_TRUE(still.save(file(u"still.png"_s)));
    writeClips(file(u"tone.vxl"_s), {{media(u"tone20.wav"_s), u"Tone"_s}});
    const QString group =
        writeBytes(file(u"group.vxg"_s), "[main]\nfiles=1\n[file1]\npath=tone.vxl\n"
                                         "text=Still\npicture=still.png\n");
    ASSERT_TRUE(program.startAndShow({group}));
    ASSERT_TRUE(plays(u"start 1 1 Tone"_s));
    const int pixels = still.width() * still.height();
    EXPECT_TRUE(waitFor([&] {
        const int red = coloursOf(desktop.screenOfSway()).red;
        return red > pixels * 9 / 10 && red <= pixels;
    }));
}

TEST_F(DesktopThatBlends, FullScreenShowsThePictureBetweenBlackBarsAndNothingBehindThem)
{
    playRed();
    controls.setFullScreen(true);
    const QSize screen = desktop.screenSize();
    const int pixels = screen.width() * screen.height();
    Colours seen;
    EXPECT_TRUE(waitFor([&] {
        seen = coloursOf(desktop.screenOfSway());
        return seen.red > pixels * 3 / 4 && seen.others < pixels / 100;
    })) << seen.red
        << " red, " << seen.black << " black, " << seen.others << " others";
    EXPECT_GT(seen.black, pixels / 10); // 4:3 on a screen of 16:10
}

} // namespace orvanta::e2e
