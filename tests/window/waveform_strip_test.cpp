// The strip of a clip's sound, drawn and under a person's hand.

#include "core/numbers.h"
#include "playback/picture_look.h"
#include "window/skin.h"
#include "window/waveform_strip.h"

#include <QAccessible>
#include <QImage>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <cmath>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLength = 100; // seconds, on two hundred pixels

/// Collects what a widget is asked to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted += dynamic_cast<const QPaintEvent&>(*event).region();
        }
        return false;
    }

    QRegion painted;
};

class Waveform : public testing::Test
{
protected:
    Waveform()
    {
        strip.resize(208, 72);
        strip.setLength(kLength);
        strip.setPeaks(Peaks(10000, {-100, 100}));
        strip.setBrakes({{20, false}, {50, false}, {90, true}});
        strip.show();
    }

    /// A moment's place on the strip, below the flags.
    [[nodiscard]] QPoint at(double seconds, int y = 40) const
    {
        return {static_cast<int>(std::lround(strip.placeOf(seconds))), y};
    }
    void press(const QPoint& place) { QTest::mousePress(&strip, Qt::LeftButton, {}, place); }
    void move(const QPoint& place) { QTest::mouseMove(&strip, place); }
    void release(const QPoint& place) { QTest::mouseRelease(&strip, Qt::LeftButton, {}, place); }
    void wheel(const QPoint& place, const QPoint& angle, Qt::KeyboardModifiers keys = {})
    {
        QWheelEvent event(place, strip.mapToGlobal(place), {}, angle, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&strip, &event);
    }
    [[nodiscard]] QImage picture() { return strip.grab().toImage(); }
    /// How many pixels of a column have this colour.
    [[nodiscard]] static int count(const QImage& image, int x, const QColor& colour)
    {
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            found += image.pixelColor(x, y) == colour ? 1 : 0;
        }
        return found;
    }
    [[nodiscard]] int countAround(double seconds, const QColor& colour)
    {
        const QImage image = picture();
        int most = 0;
        for (int x = at(seconds).x() - 2; x <= at(seconds).x() + 2; ++x) {
            most = std::max(most, count(image, x, colour));
        }
        return most;
    }

    WaveformStrip strip{TextLanguage::English, nullptr};
    QSignalSpy asked{&strip, &WaveformStrip::placeAsked};
    QSignalSpy chosen{&strip, &WaveformStrip::brakeChosen};
    QSignalSpy dragging{&strip, &WaveformStrip::brakeDragging};
    QSignalSpy dragged{&strip, &WaveformStrip::brakeDragged};
    QSignalSpy givenUp{&strip, &WaveformStrip::brakeDragGivenUp};
};

} // namespace

TEST_F(Waveform, AsksForThePlaceThatIsClicked)
{
    press(at(70));
    release(at(70));
    ASSERT_EQ(asked.count(), 1);
    EXPECT_NEAR(asked[0][0].toDouble(), 70, 0.3);
    EXPECT_EQ(chosen.count(), 0);
    QTest::mouseClick(&strip, Qt::RightButton, {}, at(30));
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(Waveform, ABrakeThatIsClickedIsChosenAndStays)
{
    for (const QPoint& place :
         {at(50) + QPoint(4, 0), at(50) - QPoint(4, 0), at(50, 8) + QPoint(10, 0)}) {
        press(place);
        release(place);
    }
    ASSERT_EQ(chosen.count(), 3);
    EXPECT_EQ(chosen[2][0].toInt(), 1);
    EXPECT_EQ(asked.count(), 0);
    EXPECT_EQ(dragged.count(), 0);
    press(at(50) + QPoint(6, 0)); // beside it, below its flag
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(Waveform, ABrakeIsDraggedToWhereItIsLetGo)
{
    const QPoint grip(3, 0); // it keeps its distance from the hand
    press(at(50) + grip);
    move(at(60) + grip);
    EXPECT_TRUE(strip.isDragging());
    move(at(65) + grip);
    EXPECT_EQ(dragging.count(), 2);
    EXPECT_EQ(dragged.count(), 0);
    release(at(65) + grip);
    ASSERT_EQ(dragged.count(), 1);
    EXPECT_EQ(dragged[0][0].toInt(), 1);
    EXPECT_NEAR(dragged[0][1].toDouble(), 65, 0.02);
    EXPECT_EQ(dragged[0][1], dragging[1][1]);
    EXPECT_FALSE(strip.isDragging());
    EXPECT_EQ(asked.count(), 0);
}

TEST_F(Waveform, ADraggedTimeIsOfWholeHundredthsBetweenTheNeighbours)
{
    for (int i = 0; i < 60; ++i) {
        wheel(at(50), {0, 120}); // there a pixel is far less than a hundredth
    }
    EXPECT_EQ(strip.zoom(), StripScale::kMostZoom);
    press(at(50));
    move(at(50) + QPoint(37, 0));
    release(at(50) + QPoint(37, 0));
    ASSERT_EQ(dragged.count(), 1);
    const double seconds = dragged[0][1].toDouble();
    EXPECT_GT(seconds, 50);
    EXPECT_EQ(seconds, std::round(seconds * 100) / 100);
    wheel(at(50), {0, -120 * 60});
    strip.setBrakes({{20, false}, {50, false}, {90, true}});
    press(at(50));
    move(at(5));
    release(at(5));
    EXPECT_EQ(dragged[1][1].toDouble(), 20.01);
    strip.setBrakes({{20, false}, {50, false}, {90, true}});
    press(at(50));
    move(at(99));
    release(at(99));
    EXPECT_EQ(dragged[2][1].toDouble(), 89.99);
}

TEST_F(Waveform, EscapeGivesADragUp)
{
    press(at(20));
    move(at(30));
    QTest::keyClick(&strip, Qt::Key_Escape);
    ASSERT_EQ(givenUp.count(), 1);
    EXPECT_EQ(givenUp[0][0].toInt(), 0);
    EXPECT_GT(countAround(20, skin::kText), 50);
    move(at(35));
    release(at(35));
    EXPECT_EQ(dragged.count(), 0);
    EXPECT_EQ(dragging.count(), 1);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&strip, &escape);
    EXPECT_FALSE(escape.isAccepted()); // without a drag it means something else
}

TEST_F(Waveform, HidingOrAnotherNumberOfBrakesGivesADragUp)
{
    press(at(20));
    move(at(30));
    strip.hide();
    EXPECT_EQ(givenUp.count(), 1);
    strip.show();
    press(at(20));
    move(at(30));
    strip.setBrakes({{20, false}});
    EXPECT_EQ(givenUp.count(), 2);
    press(at(20));
    move(at(30));
    strip.setLength(50);
    EXPECT_EQ(givenUp.count(), 3);
    EXPECT_EQ(dragged.count(), 0);
}

TEST_F(Waveform, ABrakeInTheHandStaysThereWhileOthersAreSet)
{
    press(at(20));
    move(at(30));
    strip.setBrakes({{20, false}, {55, false}, {90, true}});
    EXPECT_TRUE(strip.isDragging());
    release(at(30));
    ASSERT_EQ(dragged.count(), 1);
    EXPECT_NEAR(dragged[0][1].toDouble(), 30, 0.3);
}

TEST_F(Waveform, ADraggedBrakeShowsItsTime)
{
    press(at(50));
    const QImage before = picture();
    move(at(60));
    const QImage with = picture();
    release(at(60));
    const QImage after = picture();
    const QRect bubble(at(60, 48) + QPoint(7, 0), QSize(40, 16));
    EXPECT_NE(with.copy(bubble), after.copy(bubble));
    EXPECT_NE(before, with);
}

TEST_F(Waveform, TheWheelZoomsAroundThePointer)
{
    const double before = strip.momentAt(60);
    wheel({60, 40}, {0, 240});
    EXPECT_GT(strip.zoom(), 1.5);
    EXPECT_NEAR(strip.momentAt(60), before, 1e-9);
    wheel({60, 40}, {0, -1200});
    EXPECT_EQ(strip.zoom(), 1);
}

TEST_F(Waveform, TheWheelScrollsWithShiftAndSidewards)
{
    wheel({4, 40}, {0, 1200});
    const double zoom = strip.zoom();
    wheel({60, 40}, {0, -120}, Qt::ShiftModifier);
    const double first = strip.momentAt(4);
    EXPECT_GT(first, 0);
    wheel({60, 40}, {-120, 0});
    EXPECT_GT(strip.momentAt(4), first);
    wheel({60, 40}, {1200, 0});
    EXPECT_EQ(strip.momentAt(4), 0);
    EXPECT_EQ(strip.zoom(), zoom);
}

TEST_F(Waveform, KeysStepAndZoom)
{
    strip.setPlace(30);
    QTest::keyClick(&strip, Qt::Key_Right);
    QTest::keyClick(&strip, Qt::Key_Right); // the player may not be there yet
    QTest::keyClick(&strip, Qt::Key_Left);
    QTest::keyClick(&strip, Qt::Key_Home);
    QTest::keyClick(&strip, Qt::Key_Left);
    QTest::keyClick(&strip, Qt::Key_End);
    std::vector<double> places;
    for (const QList<QVariant>& one : asked) {
        places.push_back(one[0].toDouble());
    }
    EXPECT_EQ(places, (std::vector<double>{31, 32, 31, 0, 0, 100}));
    QTest::keyClick(&strip, Qt::Key_Plus);
    EXPECT_EQ(strip.zoom(), 2);
    QTest::keyClick(&strip, Qt::Key_Minus);
    EXPECT_EQ(strip.zoom(), 1);
}

TEST_F(Waveform, KeysThatAreNotItsOwnPassOn)
{
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_P, Qt::NoModifier), std::pair(Qt::Key_Left, Qt::ControlModifier),
          std::pair(Qt::Key_Plus, Qt::ControlModifier)}) {
        QKeyEvent event(QEvent::KeyPress, key, modifier);
        QCoreApplication::sendEvent(&strip, &event);
        EXPECT_FALSE(event.isAccepted());
    }
    EXPECT_EQ(asked.count(), 0);
}

TEST_F(Waveform, FollowsThePlaceThatItShows)
{
    strip.setPlace(10);
    wheel(at(10), {0, 1200});
    const double end = strip.momentAt(204);
    ASSERT_LT(end, 50);
    strip.setPlace(end - 0.1);
    EXPECT_NEAR(strip.momentAt(204), end, 1e-9);
    strip.setPlace(end + 0.1);
    EXPECT_GT(strip.momentAt(204), end);
    EXPECT_LT(strip.momentAt(4), end + 0.1);
    wheel({60, 40}, {-1200, 0}); // a person looks elsewhere
    const double looked = strip.momentAt(4);
    strip.setPlace(end + 0.3);
    EXPECT_EQ(strip.momentAt(4), looked);
}

TEST_F(Waveform, HasItsFlagsWhereTheBrakesAre)
{
    EXPECT_GT(countAround(20, skin::kText), 50);
    EXPECT_GT(countAround(50, skin::kText), 50);
    EXPECT_EQ(countAround(70, skin::kText), 0);
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(at(50, 4) + QPoint(13, 0)), skin::kText);    // of the flag
    EXPECT_EQ(image.pixelColor(at(90, 4) - QPoint(12, 0)), skin::kWarning); // to the left
    EXPECT_GT(countAround(90, skin::kWarning), 50);
}

TEST_F(Waveform, HasTheSelectedBrakeInTheAccentColour)
{
    EXPECT_LT(countAround(50, skin::kAccent), 30);
    strip.setSelected(1);
    EXPECT_GT(countAround(50, skin::kAccent), 50);
    EXPECT_GT(countAround(20, skin::kText), 50);
}

TEST_F(Waveform, FlagsThatFindNoRoomAreLinesAlone)
{
    std::vector<WaveformBrake> brakes;
    for (int i = 0; i < 40; ++i) {
        brakes.push_back({10 + i * 1.0, false});
    }
    StripScale scale;
    scale.setWidth(208);
    scale.setLength(kLength);
    const std::vector<WaveformFlag> flags = flagsOf(brakes, scale, 17, 208);
    ASSERT_EQ(flags.size(), 40U);
    QRectF last;
    int shown = 0;
    for (const WaveformFlag& flag : flags) {
        if (!flag.flag.isEmpty()) {
            EXPECT_FALSE(flag.flag.intersects(last)) << flag.index;
            last = flag.flag;
            ++shown;
        }
    }
    EXPECT_GE(shown, 3);
    EXPECT_FALSE(flags[17].flag.isEmpty());
}

TEST_F(Waveform, BrakesWithoutNumberAreNoMoreLinesThanItHasRoomFor)
{
    std::vector<WaveformBrake> brakes(32767);
    for (std::size_t i = 0; i < brakes.size(); ++i) {
        brakes[i].seconds = static_cast<double>(i) / 100;
    }
    brakes.back().isEnd = true;
    StripScale scale;
    scale.setWidth(200);
    scale.setLength(328);
    const std::vector<WaveformFlag> flags = flagsOf(brakes, scale, 17000, 200);
    EXPECT_LE(flags.size(), 203U);
    const auto isThere = [&](int index) {
        return std::any_of(flags.begin(), flags.end(), [&](const WaveformFlag& flag) {
            return flag.index == index && !flag.flag.isEmpty();
        });
    };
    EXPECT_TRUE(isThere(17000));
    EXPECT_TRUE(isThere(32766));
}

TEST_F(Waveform, LinesDoNotCrossFlags)
{
    strip.setBrakes({{20, false}, {24, false}, {27, true}});
    const QImage image = picture();
    const int second = at(24).x();
    EXPECT_EQ(image.pixelColor(second, 40), skin::kTextMuted);
    EXPECT_NE(image.pixelColor(second, 3), skin::kTextMuted);
    EXPECT_EQ(image.pixelColor(at(27, 4) - QPoint(12, 0)), skin::kWarning); // always has its flag
}

TEST_F(Waveform, ShowsAnEndMarkBehindTheClipsEndAtItsEnd)
{
    strip.setBrakes({{20, false}, {100.04, true}});
    EXPECT_GT(countAround(100, skin::kWarning), 50);
    press(at(100) - QPoint(2, 0));
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(Waveform, IsColouredUpToThePlace)
{
    strip.setBrakes({});
    strip.setPlace(50);
    const QImage image = picture();
    int played = 0;
    int ahead = 0;
    for (int x = 6; x < 202; ++x) {
        const bool before = x < at(50).x() - 1;
        const bool after = x > at(50).x() + 1;
        played += before && count(image, x, skin::kAccent) > 20 ? 1 : 0;
        ahead += after && count(image, x, skin::kTreeLine) > 20 ? 1 : 0;
        EXPECT_FALSE(after && count(image, x, skin::kAccent) > 0) << x;
        EXPECT_FALSE(before && count(image, x, skin::kTreeLine) > 0) << x;
    }
    EXPECT_GE(played, 45); // every second column is a bar
    EXPECT_GE(ahead, 45);
}

TEST_F(Waveform, IsAsHighAsItsSoundIsLoud)
{
    Peaks peaks(10000);
    std::fill(peaks.begin() + 5000, peaks.begin() + 7500, PeakPair{-60, 120});
    strip.setBrakes({});
    strip.setPeaks(peaks);
    const auto most = [&](double from, double to) {
        const QImage image = picture();
        int found = 0;
        for (int x = at(from).x(); x < at(to).x(); ++x) {
            found = std::max(found, count(image, x, skin::kTreeLine));
        }
        return found;
    };
    EXPECT_LE(most(10, 45), 1);
    EXPECT_NEAR(most(55, 70), 32 * (1 + 0.5), 3);
    strip.setPeaks({});
    EXPECT_EQ(most(10, 90), 1); // an even thin line
}

TEST_F(Waveform, ShadesSilences)
{
    strip.setPeaks({});
    EXPECT_EQ(countAround(70, skin::kAccentFaint), 0);
    strip.setSilences({{65, 75}});
    EXPECT_GT(countAround(70, skin::kAccentFaint), 50);
    EXPECT_EQ(countAround(80, skin::kAccentFaint), 0);
}

TEST_F(Waveform, APlaceThatMovesRepaintsFewColumns)
{
    strip.setPlace(60);
    QCoreApplication::processEvents();
    PaintWatch watch(strip);
    strip.setPlace(60.3);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !watch.painted.isEmpty(); }));
    EXPECT_LE(watch.painted.boundingRect().width(), 8);
}

TEST_F(Waveform, RunsFromLeftToRightInEveryLayout)
{
    QWidget parent;
    parent.setLayoutDirection(Qt::RightToLeft);
    WaveformStrip other(TextLanguage::Russian, &parent);
    other.resize(208, 72);
    other.setLength(kLength);
    other.setBrakes({{20, false}});
    parent.show();
    EXPECT_EQ(other.layoutDirection(), Qt::LeftToRight);
    EXPECT_LT(other.placeOf(20), other.placeOf(80));
    const QImage image = other.grab().toImage();
    EXPECT_EQ(image.pixelColor(at(20, 4) + QPoint(13, 0)), skin::kText);
}

TEST_F(Waveform, SaysItsPlaceToAssistiveTechnology)
{
    strip.setLength(180);
    strip.setPlace(64.5);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&strip);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Sound of the clip");
    EXPECT_EQ(accessible->text(QAccessible::Value), u"1:04 of 3:00, 2 marks");
    ASSERT_NE(accessible->valueInterface(), nullptr);
    EXPECT_EQ(accessible->valueInterface()->currentValue().toDouble(), 64.5);
    EXPECT_EQ(accessible->valueInterface()->maximumValue().toDouble(), 180);
    accessible->valueInterface()->setCurrentValue(30);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].toDouble(), 30);
    strip.setBrakes({{20, false}, {90, true}});
    EXPECT_EQ(strip.spokenValue(), u"0:30 of 3:00, 1 mark");
    WaveformStrip russian(TextLanguage::Russian, nullptr);
    russian.setLength(180);
    EXPECT_EQ(russian.spokenValue(), u"0:00 из 3:00, меток: 0");
}

TEST_F(Waveform, TakesTheFocusAndShowsIt)
{
    strip.activateWindow();
    const QImage before = picture();
    strip.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(QTest::qWaitFor([this] { return strip.hasFocus(); }));
    EXPECT_NE(picture(), before);
}

TEST_F(Waveform, WithoutAClipAsksForNothing)
{
    strip.setLength(0);
    press({60, 40});
    wheel({60, 40}, {0, 240});
    EXPECT_EQ(asked.count(), 0);
    EXPECT_FALSE(picture().isNull());
}

} // namespace orvanta::test
