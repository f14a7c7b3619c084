// Tempo, mirrored pictures and even loudness of the real media control.
#include "platform/media/picture_source.h"
#include "tests/support/played_sound.h"
#include "tests/support/recorded_player.h"

#include <QTimer>

#include <gtest/gtest.h>
#include <vector>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

bool leftIsBright(RecordedPlayer& player)
{
    const QImage frame = player.control.picture()->frame();
    return !frame.isNull() && qGreen(frame.pixel(frame.width() / 4, frame.height() / 2)) > 128 &&
           qGreen(frame.pixel(frame.width() * 3 / 4, frame.height() / 2)) < 128;
}

bool rightIsBright(RecordedPlayer& player)
{
    const QImage frame = player.control.picture()->frame();
    return !frame.isNull() && qGreen(frame.pixel(frame.width() / 4, frame.height() / 2)) < 128 &&
           qGreen(frame.pixel(frame.width() * 3 / 4, frame.height() / 2)) > 128;
}

} // namespace

class Tempo : public testing::TestWithParam<double>
{};

TEST_P(Tempo, ChangesTheLengthOfAToneAndKeepsItsPitch)
{
    const double speed = GetParam();
    const PlayedSound sound(u"tone.wav"_s, [&](MediaControl& player) { player.setSpeed(speed); });
    const std::vector<float> samples = sound.samples();
    EXPECT_NEAR(double(samples.size()) / kRate, 2 / speed, 0.1);
    EXPECT_NEAR(frequencyOf(samples), 440, 4.4);
}

INSTANTIATE_TEST_SUITE_P(Speeds, Tempo, testing::Values(0.5, 0.8, 1.0, 1.5));

TEST(EvenLoudness, BringsAQuietClipAndALoudOneToOneLevelWithoutClipping)
{
    const auto even = [](MediaControl& player) { player.setEvenLoudness(true); };
    const PlayedSound quiet(u"quiet.wav"_s, even);
    const PlayedSound loud(u"loud.wav"_s, even);
    EXPECT_NEAR(quiet.loudness(), loud.loudness(), 2);
    EXPECT_LT(quiet.peak(), -0.5);
    EXPECT_LT(loud.peak(), -0.5);
}

TEST(EvenLoudness, IsOffUntilAskedFor)
{
    const auto asItIs = [](MediaControl&) {};
    const PlayedSound quiet(u"quiet.wav"_s, asItIs);
    const PlayedSound loud(u"loud.wav"_s, asItIs);
    EXPECT_NEAR(loud.loudness() - quiet.loudness(), 26, 0.5);
}

TEST(EvenLoudness, LeavesAShortClipItsEnd)
{
    const PlayedSound sound(u"short.wav"_s,
                            [](MediaControl& player) { player.setEvenLoudness(true); });
    EXPECT_NEAR(double(sound.samples().size()) / kRate, 0.3, 0.05);
}

TEST(MirroredPicture, ShowsTheLeftAtTheRightAndTheSecondTimeAsItWas)
{
    RecordedPlayer player;
    player.control.picture()->setTargetSize({64, 64});
    ASSERT_TRUE(player.open(u"sides.mp4"_s));
    EXPECT_TRUE(comesTrue([&] { return leftIsBright(player); }));
    player.control.setMirrored(true);
    EXPECT_TRUE(comesTrue([&] { return rightIsBright(player); }));
    ASSERT_TRUE(player.open(u"sides.mp4"_s));
    EXPECT_TRUE(comesTrue([&] { return rightIsBright(player); }));
    player.control.setMirrored(false);
    EXPECT_TRUE(comesTrue([&] { return leftIsBright(player); }));
}

TEST(RefreshedPosition, OfAClipOfSoundAloneIsFinerThanItsReports)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"loud.wav"_s));
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.5));
    const int before = player.positions;
    ASSERT_TRUE(player.reaches(1.5));
    const int reported = player.positions - before;
    QTimer asking;
    QObject::connect(&asking, &QTimer::timeout, &player.control,
                     [&] { player.control.refreshPosition(); });
    asking.start(5);
    ASSERT_TRUE(player.reaches(2.5));
    EXPECT_GT(player.positions - before - reported, 2 * reported);
}
