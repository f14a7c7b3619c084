// The main window's search, volume and Close.

#include "tests/e2e/support/end_to_end.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Search : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        home.setOption(u"as"_s, false);
        const QString clip = media(u"short.wav"_s);
        const QString packet =
            writeClips(file(u"packet.vxl"_s),
                       {{clip, u"Red apple"_s}, {clip, u"Green pear"_s}, {clip, u"Green APPLE"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(loads(1, 3));
    }

    bool cursorComesTo(int row)
    {
        return waitFor([=, this] { return window().currentRow() == row; });
    }
};

TEST_F(Search, FindSelectsTheFirstRowThatHoldsTheTextInAnyCase)
{
    window().typeFindText(u"aPPle"_s);
    window().press(u"Find"_s);
    EXPECT_TRUE(cursorComesTo(2));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start"_s)), QStringList());
}

TEST_F(Search, ARepeatedSearchGoesOnAndDoesNotWrap)
{
    window().typeFindText(u"apple"_s);
    window().press(u"Find"_s);
    ASSERT_TRUE(cursorComesTo(2));
    window().press(u"Find"_s);
    ASSERT_TRUE(cursorComesTo(4));
    window().press(u"Find"_s);
    window().press(u"Find"_s);
    EXPECT_EQ(window().currentRow(), 4);
    // Another text begins at the top again.
    window().typeFindText(u"green"_s);
    window().press(u"Find"_s);
    EXPECT_TRUE(cursorComesTo(3));
}

TEST_F(Search, ATextThatIsNowhereChangesNothing)
{
    window().typeFindText(u"pear"_s);
    window().press(u"Find"_s);
    ASSERT_TRUE(cursorComesTo(3));
    window().typeFindText(u"banana"_s);
    window().press(u"Find"_s);
    // A further search that is found proves that the one before has been carried out.
    EXPECT_EQ(window().currentRow(), 3);
    window().typeFindText(u"red"_s);
    window().press(u"Find"_s);
    EXPECT_TRUE(cursorComesTo(2));
}

TEST_F(Search, TheRootIsNeverFound)
{
    window().typeFindText(u"orvanta"_s);
    window().press(u"Find"_s);
    EXPECT_TRUE(cursorComesTo(1));
}

class Sound : public EndToEnd
{
protected:
    Sound()
        : EndToEnd({.sound = true})
    {}

    void listen()
    {
        m_recorder.setProcessEnvironment(desktop.environment());
        m_recorder.start(u"parec"_s,
                         {u"--device="_s + Desktop::soundMonitor(), u"--format=float32le"_s,
                          u"--rate=48000"_s, u"--channels=1"_s, u"--latency-msec=20"_s});
    }

    /// Decibels of the next quarter of a second.
    double nextLevel()
    {
        constexpr qsizetype kFloats = 12000;
        m_recorder.readAllStandardOutput();
        QByteArray heard;
        const bool enough = waitFor([&] {
            heard += m_recorder.readAllStandardOutput();
            return heard.size() >= kFloats * 4;
        });
        double sum = 0;
        const auto* samples = reinterpret_cast<const float*>(heard.constData());
        for (qsizetype i = 0; enough && i < kFloats; ++i) {
            sum += static_cast<double>(samples[i]) * static_cast<double>(samples[i]);
        }
        return 10 * std::log10(sum / kFloats + 1e-12);
    }

    /// The level once it has stayed the same for two quarters of a second and is another than
    /// this one: a change of the volume is heard only when what is already on its way is played.
    double steadyLevelUnlike(double other)
    {
        constexpr double kSame = 0.05;
        constexpr double kSilence = -60;
        double before = nextLevel();
        double now = nextLevel();
        const auto isSettled = [&] {
            return now > kSilence && std::abs(now - before) < kSame && std::abs(now - other) > 1;
        };
        const bool settled = waitFor([&] {
            if (!isSettled()) {
                before = now;
                now = nextLevel();
            }
            return isSettled();
        });
        EXPECT_TRUE(settled) << "the level is " << now << " dB";
        return now;
    }
    double steadyLevel() { return steadyLevelUnlike(0); }

    [[nodiscard]] QString storedVolume() const { return home.get(u"save"_s, u"volume"_s); }

    OwnedProcess m_recorder;
};

TEST_F(Sound, HalfVolumeIsStoredAndHeardAsTenDecibelsLess)
{
    ASSERT_TRUE(program.startAndShow({media(u"tone20.wav"_s)}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    EXPECT_EQ(window().slider(u"Volume"_s), 100);
    listen();
    const double loud = steadyLevel();
    window().clickSlider(u"Volume"_s, 50);
    ASSERT_TRUE(waitFor([this] { return std::lround(window().slider(u"Volume"_s)) == 50; }));
    EXPECT_TRUE(waitFor([this] { return storedVolume() == u"-1000"; }))
        << storedVolume().toStdString();
    const double quiet = steadyLevelUnlike(loud);
    EXPECT_NEAR(loud - quiet, 10, 1) << "loud " << loud << " dB, quiet " << quiet << " dB";
}

TEST_F(Sound, TheStoredVolumeIsHeardFromTheStart)
{
    home.set(u"save"_s, u"volume"_s, u"-1000"_s);
    ASSERT_TRUE(program.startAndShow({media(u"tone20.wav"_s)}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    EXPECT_EQ(window().slider(u"Volume"_s), 50);
    listen();
    const double quiet = steadyLevel();
    window().clickSlider(u"Volume"_s, 100);
    ASSERT_TRUE(waitFor([this] { return storedVolume() == u"0"; }));
    EXPECT_NEAR(steadyLevelUnlike(quiet) - quiet, 10, 1);
}

class Sliders : public EndToEnd
{};

TEST_F(Sliders, OneNotchDownFromFullVolumeStoresItsUnroundedText)
{
    ASSERT_TRUE(program.startAndShow());
    ASSERT_EQ(window().slider(u"Volume"_s), 100);
    const QPoint place = window().sliderCentre(u"Volume"_s);
    desktop.turnWheel(place, -1);
    ASSERT_TRUE(waitFor([this] { return window().slider(u"Volume"_s) < 100; }));
    const double steps = (100 - window().slider(u"Volume"_s)) / 5;
    const double expected = -steps * steps * steps;
    EXPECT_TRUE(waitFor([&] {
        return std::abs(home.get(u"save"_s, u"volume"_s).toDouble() - expected) < 1e-9;
    })) << home.get(u"save"_s, u"volume"_s).toStdString();
}

TEST_F(Sliders, BalanceStoresItsPlaceAndNothingElse)
{
    ASSERT_TRUE(program.startAndShow());
    EXPECT_EQ(window().slider(u"Balance"_s), 50);
    window().clickSlider(u"Balance"_s, 100);
    EXPECT_TRUE(waitFor([this] { return home.get(u"save"_s, u"balance"_s) == u"100"; }));
    EXPECT_EQ(home.get(u"save"_s, u"volume"_s), u"0"_s);
}

TEST_F(Sliders, StoredPlacesAreShownAtTheNextStartAndNothingIsWritten)
{
    home.set(u"save"_s, u"volume"_s, u"-0.008"_s);
    home.set(u"save"_s, u"balance"_s, u"20"_s);
    ASSERT_TRUE(program.startAndShow());
    EXPECT_EQ(window().slider(u"Volume"_s), 100);
    EXPECT_EQ(window().slider(u"Balance"_s), 20);
    EXPECT_EQ(home.get(u"save"_s, u"volume"_s), u"-0.008"_s);
}

class Close : public EndToEnd
{};

TEST_F(Close, DeletesTheScratchCopyAndEndsWithStatusZero)
{
    writeBytes(home.file(u"temp.vxc"_s), "scratch");
    ASSERT_TRUE(program.startAndShow());
    window().press(u"Close button"_s);
    ASSERT_EQ(program.statusAtEnd(), 0);
    EXPECT_FALSE(QFile::exists(home.file(u"temp.vxc"_s)));
}

TEST_F(Close, EndsAPlayingAPausedAndABrakePacketAlike)
{
    const QString lesson =
        writeBrakes(file(u"lesson.vxl"_s), media(u"brakes6.mp4"_s), {{0, u"One"_s}, {2, u"Two"_s}});
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    window().press(u"Pause"_s);
    ASSERT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    window().press(u"Close button"_s);
    ASSERT_EQ(program.statusAtEnd(), 0);
}

TEST_F(Close, TheWindowManagersCloseIsTheCloseButton)
{
    writeBytes(home.file(u"temp.vxc"_s), "scratch");
    ASSERT_TRUE(program.startAndShow({media(u"video2.mp4"_s)}));
    ASSERT_TRUE(plays(u"start 1 1"_s));
    ASSERT_TRUE(desktop.closeWindow(u"!Orvanta!"_s));
    ASSERT_EQ(program.statusAtEnd(), 0);
    EXPECT_FALSE(QFile::exists(home.file(u"temp.vxc"_s)));
}

} // namespace orvanta::e2e
