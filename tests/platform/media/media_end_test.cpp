// The natural end of a clip: reported once for every clip, and for nothing else.
#include "tests/support/recorded_player.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

class EveryClip : public testing::TestWithParam<const char*>
{
protected:
    [[nodiscard]] static QString clip() { return QString::fromLatin1(GetParam()); }
};

std::string nameOf(const testing::TestParamInfo<const char*>& info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

} // namespace

TEST_P(EveryClip, EndsExactlyOnceAndStandsStoppedAtItsStart)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(clip()));
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    EXPECT_EQ(player.jumps.back().from, player.jumps.back().duration);
    EXPECT_GT(player.control.Duration(), 0.0);

    // Whatever a second report would come from has passed when another clip is open.
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.ends, 1);
}

TEST_P(EveryClip, PlaysAgainAfterItsEnd)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(clip()));
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    player.control.Run();
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Running);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.ends, 2);
}

INSTANTIATE_TEST_SUITE_P(VeryShort, EveryClip,
                         testing::Values("short.mp4", "short.mkv", "short.avi", "short.webm",
                                         "short.wav", "short.mp3", "short.ogg", "short.flac"),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(SoundOnly, EveryClip, testing::Values("one.wav", "one.mp3", "one.ogg"),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Ordinary, EveryClip, testing::Values("two.mp4", "silent.mp4", "stream.ts"),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(BareStream, EveryClip,
                         testing::Values("raw.h264", "raw.hevc", "raw.m4v", "raw.m2v", "raw.aac",
                                         "raw.loas", "raw.ac3", "raw.eac3", "raw.dts", "raw.mp3"),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(BrokenOff, EveryClip,
                         testing::Values("broken.mp4", "broken.mkv", "broken.avi", "broken.ts",
                                         "broken.wav", "unknown.mkv"),
                         nameOf);

TEST(MediaEnd, AClipOfWrongLengthEndsFromTheLengthItClaims)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"broken.mp4"_s));
    EXPECT_NEAR(player.control.Duration(), 3.0, 0.1);
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.jumps.back().from, player.jumps.back().duration);
    EXPECT_EQ(player.jumps.back().to, 0.0);
}

TEST(MediaEnd, AnUnknownLengthBecomesTheLargestPositionSeen)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"raw.h264"_s)); // nothing in it tells its length
    ASSERT_EQ(player.control.Duration(), 0.0);
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.control.Duration(), 0.6, 0.1);
    EXPECT_EQ(player.jumps.back().from, player.jumps.back().duration);
}

TEST(MediaEnd, AUsersStopIsNone)
{
    RecordedPlayer player;
    for (const double place : {0.1, 0.6, 1.4}) {
        ASSERT_TRUE(player.open(u"two.mp4"_s));
        player.control.Run();
        ASSERT_TRUE(player.reaches(place));
        player.control.Stop();
        EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
        EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    }
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_EQ(player.ends, 0);
}

TEST(MediaEnd, AUsersStopInsideTheLastWholeSecondIsNone)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"silent.mp4"_s));
    // One second long: only its last picture is inside second 1.
    player.control.setCurrentPosition(player.control.Duration());
    player.control.Stop();
    ASSERT_TRUE(player.open(u"short.wav"_s)); // all of it is its last whole second
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.05));
    player.control.Stop();
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.ends, 0);
}

TEST(MediaEnd, AUsersSeekToTheStartIsNone)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"short.wav"_s));
    player.control.setCurrentPosition(0.2);
    player.control.setCurrentPosition(0);
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.Run();
    for (int i = 0; i < 5; ++i) {
        player.control.setCurrentPosition(1.5);
        player.control.setCurrentPosition(0);
    }
    ASSERT_TRUE(player.reaches(0.3));
    EXPECT_EQ(player.ends, 0);
}

TEST(MediaEnd, SeeksWhileRunningLeaveExactlyOneEnd)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.Run();
    for (const double place : {1.0, 0.4, 1.9, 0.2, 1.7}) {
        player.control.setCurrentPosition(place);
        ASSERT_TRUE(player.reaches(place + 0.05) || player.ends > 0);
    }
    ASSERT_TRUE(comesTrue([&] { return player.ends > 0; }));
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_EQ(player.ends, 1);
}

TEST(MediaEnd, ASeekMadeAtTheVeryEndPlaysOnFromItsTarget)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.setCurrentPosition(1.9);
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    player.control.Run();
    player.control.setCurrentPosition(1.8);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.ends, 2);
}

TEST(MediaEnd, PausingAtTheEndOfThePictureIsNone)
{
    RecordedPlayer player;
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    player.control.Run();
    player.control.Pause();
    player.control.setCurrentPosition(player.control.Duration());
    ASSERT_TRUE(player.open(u"short.mp4"_s));
    EXPECT_EQ(player.ends, 0);
}

TEST(MediaEnd, ARuleOfThePlayersLastWholeSecond)
{
    struct Row
    {
        double from, to, duration;
        bool end;
    };
    constexpr Row kRows[] = {
        {10.4, 0, 10.4, true},     {10.0, 0, 10.4, true}, {9.9, 0, 10.4, false},
        {10.2, 0.01, 10.4, false}, {0.3, 0, 0.3, true},   {5, 0, 10.4, false},
        {11.0, 0, 10.4, false},    {0, 0, 0, true},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(looksLikeEnd(row.from, row.to, row.duration), row.end) << row.from;
    }
}
