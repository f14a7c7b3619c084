// Practised lines as they are heard: where the sound of each begins and ends.

#include "tests/e2e/support/heard_sound.h"
#include "tests/e2e/support/steered.h"

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class PractisedSound : public Steered
{
protected:
    static constexpr double kLine = 0.5; // seconds
    static constexpr std::size_t kLines = 5;
    static constexpr double kMostOff = 0.04; // seconds

    PractisedSound()
        : Steered({.sound = true})
    {}

    /// By how much the lines are heard longer or shorter than they are at this speed, seconds; the
    /// largest is last.
    std::vector<double> playAndMeasure(const QString& lesson, double speed)
    {
        constexpr double kPause = 0.2; // a wave's zero is no silence
        HeardSound heard(desktop);
        EXPECT_TRUE(heard.begins());
        EXPECT_EQ(launchAgain(desktop, home, {lesson}), 0);
        EXPECT_TRUE(plays(u"start 1 1 Line 1"_s));
        EXPECT_TRUE(plays(u"stopped"_s));
        std::vector<double> lengths;
        EXPECT_TRUE(waitFor([&] {
            lengths = heard.lengths(kPause);
            return lengths.size() >= kLines;
        }));
        for (double& length : lengths) {
            length = std::abs(length - kLine / speed);
        }
        std::ranges::sort(lengths);
        return lengths;
    }

    /// The best of a few chances, as a machine may be busy with something else: how far off the
    /// line is that so many others are nearer than.
    double leastOff(double speed, std::size_t nearer)
    {
        home.set(u"practice"_s, u"wait"_s, u"-2"_s);
        home.set(u"practice"_s, u"seconds"_s, u"1"_s);
        home.set(u"practice"_s, u"speed"_s, QString::number(std::lround(speed * 100)));
        QList<BrakeLine> brakes;
        for (int i = 0; i <= int(kLines); ++i) {
            brakes.append({1 + i * kLine, u"Line %1"_s.arg(i + 1)});
        }
        const QString lesson = writeBrakes(file(u"lesson.vxl"_s), media(u"tone20.wav"_s), brakes);
        EXPECT_TRUE(program.startAndShow());
        constexpr int kChances = 4;
        double off = 1;
        for (int chance = 0; chance < kChances && off > kMostOff; ++chance) {
            const std::vector<double> offs = playAndMeasure(lesson, speed);
            off = std::min(off, offs.size() < kLines ? 1 : offs[nearer]);
        }
        return off;
    }
};

TEST_F(PractisedSound, EndsWithinFortyMillisecondsOfTheNextBrake)
{
    EXPECT_LE(leastOff(1, kLines - 1), kMostOff);
}

TEST_F(PractisedSound, EndsWithinFortyMillisecondsAlsoSlowedDownWithEvenLoudness)
{
    home.set(u"practice"_s, u"even"_s, u"1"_s);
    EXPECT_LE(leastOff(0.8, kLines / 2), kMostOff);
}

} // namespace orvanta::e2e
