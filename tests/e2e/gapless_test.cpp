// One clip of sound after another as they are heard: whole, and with nothing between them.

#include "tests/e2e/support/end_to_end.h"
#include "tests/e2e/support/heard_sound.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Gapless : public EndToEnd
{
protected:
    static constexpr double kClip = 1.5;      // seconds
    static constexpr double kMostGap = 0.002; // seconds
    static constexpr double kMostLost = 0.03; // seconds, as the device begins to play

    Gapless()
        : EndToEnd({.sound = true})
    {}

    /// The lengths of the sounds that are heard while three clips follow each other.
    std::vector<double> playThree(const QString& clip, double mostGap)
    {
        const QString lesson = writeClips(
            file(u"lesson.vxl"_s),
            {{media(clip), u"First"_s}, {media(clip), u"Second"_s}, {media(clip), u"Third"_s}});
        HeardSound heard(desktop);
        EXPECT_TRUE(heard.begins());
        EXPECT_EQ(launchAgain(desktop, home, {lesson}), 0);
        for (int i = 1; i <= 3; ++i) {
            EXPECT_TRUE(plays(u"start 1 %1"_s.arg(i)));
            EXPECT_TRUE(plays(u"ended 1 %1"_s.arg(i)));
        }
        std::vector<double> lengths;
        EXPECT_TRUE(waitFor([&] {
            lengths = heard.lengths(mostGap);
            return std::accumulate(lengths.begin(), lengths.end(), 0.0) > 2.9 * kClip;
        }));
        return lengths;
    }

    /// With a few chances: on a machine that is busy the player library itself may come too late.
    std::vector<double> playThreeWell(const QString& clip, double mostGap)
    {
        constexpr int kChances = 3;
        std::vector<double> lengths;
        for (int chance = 0; chance < kChances && lengths.size() != 1; ++chance) {
            lengths = playThree(clip, mostGap);
        }
        return lengths;
    }
};

TEST_F(Gapless, ClipsOfSoundAreHeardWholeAndAsOne)
{
    home.setOption(u"agnc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    for (const QString& clip : {u"tone.wav"_s, u"tone.flac"_s, u"tone.mp3"_s}) {
        const std::vector<double> lengths = playThreeWell(clip, 0.002);
        ASSERT_EQ(lengths.size(), 1U) << qPrintable(clip) << testing::PrintToString(lengths);
        EXPECT_GT(lengths.front(), 3 * kClip - kMostLost) << qPrintable(clip);
        EXPECT_LT(lengths.front(), 3 * kClip + kMostLost) << qPrintable(clip);
    }
}

TEST_F(Gapless, BetweenFilmsLessThanAPictureIsSilent)
{
    home.setOption(u"agnc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    const std::vector<double> lengths = playThreeWell(u"tone.mp4"_s, 0.04);
    EXPECT_EQ(lengths.size(), 1U) << testing::PrintToString(lengths);
}

} // namespace orvanta::e2e
