// The main window's three sliders.

#include "tests/window/window_fixture.h"

#include <QWheelEvent>

namespace orvanta::test {

class Sliders : public Form2Test
{
protected:
    static QPoint grooveAt(const SkinSlider* slider, double percent)
    {
        constexpr int kKnobRadius = 7;
        const double width = slider->width() - 2.0 * kKnobRadius;
        return {qRound(kKnobRadius + width * percent / 100), slider->height() / 2};
    }

    /// As the user would with keys: there is a value for every whole number.
    static void keyTo(SkinSlider* slider, double value) { slider->stepTo(value); }

    void showRunningClip()
    {
        addClips(u"clips"_s, {u"one"_s});
        showList();
        ASSERT_TRUE(start(1, 1));
        control.calls.clear();
    }

    static void wheel(QWidget* widget, int notches)
    {
        const QPointF place = widget->rect().center();
        QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                          {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    }
};

TEST_F(Sliders, VolumeReachesTheControlAndTheSettings)
{
    struct Row
    {
        int place;
        int volume;
        const char16_t* stored;
    };
    show();
    for (const Row& row : {Row{50, -1000, u"-1000"}, Row{0, -8000, u"-8000"},
                           Row{99, -1, u"-0.008"}, Row{100, 0, u"0"}}) {
        keyTo(window->Slider2, row.place);
        EXPECT_EQ(control.Volume(), row.volume) << row.place;
        EXPECT_EQ(home.value("save", "volume"), QString::fromUtf16(row.stored)) << row.place;
    }
}

TEST_F(Sliders, AStoredVolumeOf99IsReadBackAs100)
{
    show();
    keyTo(window->Slider2, 99);
    load();
    EXPECT_EQ(window->Slider2->value(), 100);
}

TEST_F(Sliders, EveryMoveOfTheVolumeSliderActsAtOnce)
{
    show();
    QTest::mousePress(window->Slider2, Qt::LeftButton, {}, grooveAt(window->Slider2, 50));
    const QString first = home.value("save", "volume");
    EXPECT_NE(first, QString());
    QTest::mouseMove(window->Slider2, grooveAt(window->Slider2, 20));
    EXPECT_TRUE(QTest::qWaitFor([&] { return home.value("save", "volume") != first; }));
    QTest::mouseRelease(window->Slider2, Qt::LeftButton, {}, grooveAt(window->Slider2, 20));
}

TEST_F(Sliders, TheEngineMovingTheVolumeSliderWritesNothing)
{
    show();
    window->setVolumeSlider(30);
    EXPECT_EQ(window->Slider2->value(), 30);
    EXPECT_EQ(home.value("save", "volume"), QString());
}

TEST_F(Sliders, BalanceChangesOnlyItsStoredValue)
{
    show();
    control.calls.clear();
    keyTo(window->Slider3, 70);
    EXPECT_EQ(home.value("save", "balance"), u"70");
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_EQ(home.value("save", "volume"), QString());
}

TEST_F(Sliders, HoldingThePositionSliderPreviewsAndLettingGoSeeksOnce)
{
    showRunningClip();
    QTest::mousePress(window->Slider1, Qt::LeftButton, {}, grooveAt(window->Slider1, 50));
    EXPECT_TRUE(window->isSliderHeld());
    const QString preview = window->Label1->text();
    EXPECT_NE(preview, u"0.00");
    EXPECT_EQ(control.calls, QStringList());
    control.playTo(1);
    engine->tick();
    EXPECT_EQ(window->Label1->text(), preview);
    QTest::mouseRelease(window->Slider1, Qt::LeftButton, {}, grooveAt(window->Slider1, 50));
    EXPECT_FALSE(window->isSliderHeld());
    EXPECT_NEAR(control.CurrentPosition(), 5, 0.2);
}

TEST_F(Sliders, WhilePausedThePositionSliderPreviewsButDoesNotSeek)
{
    showRunningClip();
    control.playTo(1);
    engine->tick();
    click(window->Image3);
    engine->tick();
    keyTo(window->Slider1, 40);
    EXPECT_EQ(control.CurrentPosition(), 1);
    EXPECT_NE(window->Label1->text(), u"0.00");
}

TEST_F(Sliders, LettingGoAtTheExactPositionOfARunningClipDoesNotSeek)
{
    showRunningClip();
    control.playTo(4);
    engine->tick();
    control.calls.clear();
    // The tick has placed the slider at 40; there and back is a change without a distance.
    const QPoint knob = grooveAt(window->Slider1, window->Slider1->value());
    QTest::mousePress(window->Slider1, Qt::LeftButton, {}, knob);
    QTest::mouseMove(window->Slider1, knob + QPoint(30, 0));
    QTest::mouseMove(window->Slider1, knob);
    QTest::mouseRelease(window->Slider1, Qt::LeftButton, {}, knob);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Sliders, AClipOfLengthZeroDoesNotMoveThePositionSlider)
{
    control.duration = 0;
    showRunningClip();
    control.playTo(0);
    engine->tick();
    EXPECT_EQ(window->Slider1->value(), 0);
    keyTo(window->Slider1, 30);
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Sliders, AWheelStepSeeksAtOnceAndHoldsNothing)
{
    showRunningClip();
    control.playTo(4);
    engine->tick();
    wheel(window->Slider1, 1);
    EXPECT_FALSE(window->isSliderHeld());
    EXPECT_NEAR(control.CurrentPosition(), 4.1, 1e-9);
}

TEST_F(Sliders, TheEngineMovingThePositionSliderIsNoUser)
{
    showRunningClip();
    window->moveSlider(60);
    EXPECT_FALSE(window->isSliderHeld());
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Sliders, TheirMiddleCanBeHitAtEveryWidth)
{
    show();
    for (int width = 57; width < 70; ++width) {
        SkinSlider slider(SkinSlider::Fill::FromCentre, 5, window.get());
        slider.resize(width, 24);
        slider.show();
        const int middle = 7 + (width - 14) / 2;
        QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(middle, 12));
        EXPECT_EQ(slider.value(), 50) << width;
    }
}

} // namespace orvanta::test
