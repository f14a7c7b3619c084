// The lesson's text over the picture, read back from the screen.

#include "tests/e2e/support/accessibility.h"
#include "tests/e2e/support/steered.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class PictureText : public Steered
{
protected:
    QImage screen()
    {
        return QImage::fromData(desktop.run(u"import"_s, {u"-window"_s, u"root"_s, u"ppm:-"_s}));
    }

    /// Pixels of pure white in the lowest third of a place; the test clips have none.
    int whiteBelow(QRect place)
    {
        const QImage part = screen().copy(place.adjusted(0, place.height() * 2 / 3, 0, 0));
        int count = 0;
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x) {
                count += (part.pixel(x, y) & 0xffffff) == 0xffffff ? 1 : 0;
            }
        }
        return count;
    }

    /// Keeps the screen for a person's eyes where somebody asks for it.
    void keepScreen(const QString& name)
    {
        const QString folder = qEnvironmentVariable("ORVANTA_PICTURES");
        if (!folder.isEmpty()) {
            screen().save(folder + u'/' + name + u".png"_s);
        }
    }
};

TEST_F(PictureText, GoesRoundByItsKeyInBothWindowsAndOnTheWholeScreen)
{
    playLesson();
    ASSERT_TRUE(desktop.resizeWindow(kVideoWindow, {640, 480}));
    ASSERT_TRUE(waitFor([this] { return videoPlace().size() == QSize(640, 480); }));
    ASSERT_TRUE(desktop.activate(kVideoWindow));
    EXPECT_EQ(whiteBelow(videoPlace()), 0);
    desktop.press(u"F5"_s);
    const auto isThere = [this] { return whiteBelow(videoPlace()) > 20; };
    EXPECT_TRUE(waitFor(isThere));
    EXPECT_TRUE(waitFor([this] { return home.get(u"practice"_s, u"text"_s) == u"1"; }));
    keepScreen(u"text_window"_s);
    desktop.press(u"F11"_s);
    ASSERT_TRUE(videoFillsScreen());
    EXPECT_TRUE(waitFor([this] { return whiteBelow(videoPlace()) > 200; }));
    keepScreen(u"text_full"_s);
    desktop.press(u"F11"_s);
    ASSERT_TRUE(videoIsInWindow());
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"F5"_s);
    EXPECT_TRUE(waitFor([this] { return home.get(u"practice"_s, u"text"_s) == u"2"; }));
    keepScreen(u"text_large"_s);
    desktop.press(u"F5"_s);
    EXPECT_TRUE(waitFor([this] { return home.get(u"practice"_s, u"text"_s) == u"0"; }));
    EXPECT_TRUE(waitFor([this] { return whiteBelow(videoPlace()) == 0; }));
}

TEST_F(PictureText, TheBarShowsUnderTheMouseAndATickOfItGoesToItsBrake)
{
    const QString packet = writeBrakes(file(u"brakes.vxl"_s), media(u"video200.mp4"_s),
                                       {{0, u"One beat"_s},
                                        {60, u"Listen, and clap on every third beat"_s},
                                        {120, u"Three beats"_s},
                                        {190, u"End"_s}});
    home.set(u"practice"_s, u"text"_s, u"1"_s);
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(becomes(u"Playing"_s));
    ASSERT_TRUE(videoIsInWindow());
    ASSERT_TRUE(desktop.resizeWindow(kVideoWindow, {640, 480}));
    ASSERT_TRUE(waitFor([this] { return videoPlace().size() == QSize(640, 480); }));
    const QRect place = videoPlace();
    // On the tick of the second brake: the track goes from edge to edge beside the times.
    AccessibilityBus accessibility(desktop);
    desktop.moveMouse(place.center());
    desktop.moveMouse(place.center() + QPoint(20, 20));
    keepScreen(u"bar_window"_s);
    std::optional<Accessible> track;
    const auto hasTrack = [&] {
        desktop.moveMouse(place.center() + QPoint(20, 20));
        desktop.moveMouse(place.center());
        const auto top = accessibility.program(program.pid());
        track = top ? top->find([&](const Accessible& each) {
            return each.role() == u"slider" && each.isShowing() && place.contains(each.place());
        })
                    : std::nullopt;
        return track.has_value();
    };
    ASSERT_TRUE(waitFor(hasTrack));
    const QRect slider = track->place();
    const int tick = slider.left() + 8 + (slider.width() - 16) * 60 / 200;
    desktop.moveMouse({tick, slider.center().y()});
    keepScreen(u"bar_bubble"_s);
    desktop.click({tick, slider.center().y()});
    EXPECT_TRUE(comesBetween(59.5, 75));
    desktop.moveMouse({10, 10});
    EXPECT_TRUE(waitFor([&] { return !track->isShowing(); }));
}

TEST_F(PictureText, TheWheelOverThePictureIsTheVolume)
{
    playLesson();
    ASSERT_TRUE(volumeBecomes(100));
    desktop.turnWheel(videoPlace().center(), -3);
    EXPECT_TRUE(volumeBecomes(85));
    desktop.turnWheel(videoPlace().center(), 1);
    EXPECT_TRUE(volumeBecomes(90));
}

TEST_F(PictureText, GivesSoundAWindowThatStaysOutOfSightWithoutIt)
{
    const QString packet = writeClips(file(u"words.vxl"_s), {{media(u"tone20.wav"_s), u"Apple"_s}});
    home.set(u"practice"_s, u"text"_s, u"2"_s);
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(plays(u"start 1 1 Apple"_s));
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"tone20"_s) == 1; }));
    EXPECT_EQ(desktop.placeOf(u"tone20"_s).size(), QSize(640, 360));
    keepScreen(u"sound"_s);
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"F5"_s);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"tone20"_s) == 0; }));
}

} // namespace orvanta::e2e
