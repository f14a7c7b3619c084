// The picture on a desktop that blends windows with what lies behind them.

#include "tests/e2e/support/steered.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

/// How many pixels of a screen are of a kind.
struct Colours
{
    int red = 0;
    int black = 0;
    int others = 0;
};

static Colours coloursOf(const QImage& screen)
{
    Colours colours;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            const QRgb pixel = screen.pixel(x, y);
            const bool isDarkBeside = qGreen(pixel) < 40 && qBlue(pixel) < 40;
            if (isDarkBeside && qRed(pixel) > 200) {
                ++colours.red;
            } else if (isDarkBeside && qRed(pixel) < 40) {
                ++colours.black;
            } else {
                ++colours.others;
            }
        }
    }
    return colours;
}

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
