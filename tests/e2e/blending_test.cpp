// The picture on a desktop that blends windows with what lies behind them.

#include "tests/e2e/support/screen_colours.h"
#include "tests/e2e/support/steered.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

static int pixelsOf(const QImage& screen, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            count += (screen.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK) ? 1 : 0;
        }
    }
    return count;
}

static int whiteIn(const QImage& screen)
{
    return pixelsOf(screen, qRgb(255, 255, 255));
}

static int groundIn(const QImage& screen)
{
    return pixelsOf(screen, qRgb(0, 0, 255));
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

    /// The window fills its half of the screen: red from edge to edge with black above and below,
    /// and neither the ground nor anything else shines through.
    bool isPictureWholeInItsWindow()
    {
        const QImage screen = desktop.screenOfSway();
        const int x = screen.width() * 3 / 4;
        int first = -1;
        int last = -1;
        for (int y = 0; y < screen.height(); ++y) {
            if (coloursOf(screen.copy(x, y, 1, 1)).red > 0) {
                first = first < 0 ? y : first;
                last = y;
            }
        }
        constexpr int kBar = 25; // as much of each black bar is looked at
        constexpr int kEdge = 4; // of the window, and of what is scaled
        constexpr int kLeast = 100;
        if (first < kBar + kEdge || last - first < kLeast ||
            last + kBar + kEdge > screen.height()) {
            return false;
        }
        const auto band = [&](int top, int bottom) {
            const int left = screen.width() / 2 + kEdge;
            return coloursOf(
                screen.copy(QRect(QPoint(left, top), QPoint(screen.width() - 1 - kEdge, bottom))));
        };
        const Colours picture = band(first + kEdge, last - kEdge);
        const Colours above = band(first - kEdge - kBar, first - kEdge);
        const Colours below = band(last + kEdge, last + kEdge + kBar);
        return picture.black + picture.others + above.red + above.others + below.red +
                   below.others ==
               0;
    }
};

TEST_F(DesktopThatBlends, TheGroundIsSeenWhereNoWindowIs)
{
    ASSERT_TRUE(waitFor([this] { return qBlue(desktop.screenOfSway().pixel(5, 5)) > 200; }));
}

TEST_F(DesktopThatBlends, ThePictureIsSeenAsItIsInItsWindow)
{
    playRed();
    EXPECT_TRUE(waitFor([this] { return isPictureWholeInItsWindow(); }));
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

TEST_F(DesktopThatBlends, TheTextStandsOverTheMovingPictureAndNothingOfTheGroundShowsThrough)
{
    home.set(u"practice"_s, u"text"_s, u"2"_s);
    playRed();
    controls.setFullScreen(true);
    const auto part = [this] { // where the text stands
        const QImage screen = desktop.screenOfSway();
        return screen.copy(screen.rect().adjusted(0, screen.height() * 2 / 3, 0, 0));
    };
    EXPECT_TRUE(waitFor([&] {
        const QImage seen = part();
        const Colours colours = coloursOf(seen);
        return whiteIn(seen) > 500 && colours.red > seen.width() * seen.height() / 4;
    }));
    EXPECT_EQ(groundIn(part()), 0);
}

class BlendingDesktopWithAMouse : public Steered
{
protected:
    BlendingDesktopWithAMouse()
        : Steered({.windowManager = false, .compositor = u"sway-x11"_s})
    {}

    void SetUp() override
    {
        Steered::SetUp();
        const QString lesson = writeClips(file(u"red.vxl"_s), {{media(u"red20.mp4"_s), u"Red"_s}});
        ASSERT_TRUE(program.startAndShow({lesson}));
        ASSERT_TRUE(becomes(u"Playing"_s));
        controls.setFullScreen(true);
        desktop.moveMouse({2, 2});
        ASSERT_TRUE(waitFor([this] { return fillsScreen() && otherPixels() == 0; }));
    }

    bool fillsScreen()
    {
        const QSize screen = desktop.screenSize();
        return coloursOf(desktop.screenOfSway()).red > screen.width() * screen.height() * 3 / 4;
    }
    /// Neither of the picture nor black.
    int otherPixels() { return coloursOf(desktop.screenOfSway()).others; }
};

TEST_F(BlendingDesktopWithAMouse, TheBarComesOverThePictureUnderTheMouseAndGoesAgain)
{
    const QPoint middle = QRect(QPoint(), desktop.screenSize()).center();
    EXPECT_TRUE(waitFor([&] {
        desktop.moveMouse(middle + QPoint(20, 0));
        desktop.moveMouse(middle);
        return otherPixels() > 500;
    }));
    EXPECT_GT(coloursOf(desktop.screenOfSway()).red, 0);
    EXPECT_TRUE(waitFor([this] { return otherPixels() == 0; }));
}

TEST_F(BlendingDesktopWithAMouse, TheSignOfABookmarkIsSeenOverThePictureAndGoesAgain)
{
    constexpr QRgb kRibbon = qRgb(0xf2, 0xa6, 0x3b);
    press(Key::K);
    EXPECT_TRUE(waitFor([&] { return pixelsOf(desktop.screenOfSway(), kRibbon) > 100; }));
    EXPECT_TRUE(waitFor([this] { return fillsScreen() && otherPixels() == 0; }));
}

/// The player plays sound alone, so that all red is the preview's.
class BlendingDesktopWithAnEditor : public Steered
{
protected:
    BlendingDesktopWithAnEditor()
        : Steered({.windowManager = false, .compositor = u"sway-x11"_s})
    {}

    void SetUp() override
    {
        Steered::SetUp();
        QDir().mkpath(file(u"clips"_s));
        ASSERT_TRUE(QFile::copy(media(u"red20.mp4"_s), file(u"clips/red20.mp4"_s)));
        home.set(u"save"_s, u"open"_s, file(u"clips"_s));
        ASSERT_TRUE(program.startAndShow(
            {writeClips(file(u"tone.vxl"_s), {{media(u"tone20.wav"_s), u"Tone"_s}})}));
        ASSERT_TRUE(becomes(u"Playing"_s));
    }

    /// By assistive technology: a program under Wayland does not know where its windows stand.
    [[nodiscard]] std::optional<Accessible> control(const QString& window, const QString& role,
                                                    const QString& name)
    {
        std::optional<Accessible> found;
        static_cast<void>(waitFor([&] {
            const auto top = m_bus.program(program.pid());
            for (const Accessible& each : top ? top->children() : std::vector<Accessible>()) {
                if (!found && each.name() == window && each.isActive()) {
                    // The editor's other mode has controls of the same names, out of sight.
                    found = each.find([&](const Accessible& control) {
                        return control.role() == role && control.isShowing() &&
                               (control.name() == name || control.description() == name);
                    });
                }
            }
            return found.has_value();
        }));
        return found;
    }

    [[nodiscard]] bool focus(const QString& window, const QString& role, const QString& name)
    {
        const auto found = control(window, role, name);
        if (found) {
            found->act(u"SetFocus"_s);
        }
        return found.has_value();
    }

    void openEditor()
    {
        ASSERT_TRUE(focus(kMainWindow, u"push button"_s, u"New..."_s));
        desktop.press(u"space"_s);
        desktop.press(u"Down"_s);
        desktop.press(u"Return"_s);
        ASSERT_TRUE(control(kEditor, u"radio button"_s, u"Brake"_s));
    }
    /// Assistive technology cannot give lists the keyboard; the tree of folders stands between.
    void chooseClip()
    {
        ASSERT_TRUE(focus(kEditor, u"radio button"_s, u"Brake"_s));
        desktop.press(u"space"_s);
        ASSERT_TRUE(control(kEditor, u"slider"_s, u"Position"_s));
        for (const auto& key : {u"Tab"_s, u"Tab"_s, u"Home"_s, u"space"_s}) {
            desktop.press(key);
        }
        const auto clip = control(kEditor, u"text"_s, u"Clip:"_s);
        ASSERT_TRUE(clip);
        ASSERT_TRUE(waitFor([&] { return clip->text().endsWith(u"red20.mp4"_s); }))
            << qPrintable(clip->window().outline());
    }

    [[nodiscard]] int red() { return coloursOf(desktop.screenOfSway()).red; }

    const QString kEditor = u"Create packet"_s;

private:
    AccessibilityBus m_bus{desktop};
};

TEST_F(BlendingDesktopWithAnEditor, ThePreviewShowsItsClipAsItIs)
{
    ASSERT_EQ(red(), 0);
    ASSERT_NO_FATAL_FAILURE(openEditor());
    ASSERT_NO_FATAL_FAILURE(chooseClip());
    const auto position = control(kEditor, u"slider"_s, u"Position"_s);
    ASSERT_TRUE(position);
    constexpr int kLeast = 100 * 100;
    EXPECT_TRUE(waitFor([&] {
        position->setValue(position->value() + 1);
        return red() > kLeast;
    })) << red()
        << qPrintable(position->window().outline());
}

} // namespace orvanta::e2e
