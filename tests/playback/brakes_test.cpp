#include "playback/brakes.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace orvanta {

namespace {

PlaylistEntry brakes(std::initializer_list<const char*> times)
{
    PlaylistEntry packet;
    packet.HasBrakes = true;
    for (const char* time : times) {
        packet.Clips.push_back({.Time = QString::fromUtf8(time), .Text = {}, .Path = {}});
    }
    packet.ClipCount = static_cast<qint64>(packet.Clips.size());
    return packet;
}

BrakeDecision::What reached(const PlaylistEntry& packet, Int16 current, double position,
                            Int16 packetCount = 1)
{
    return brakeReached(packet, current, 1, packetCount, position).what;
}

} // namespace

TEST(BrakeSpan, BeforeTheFirstBrakeBeginsAtZero)
{
    const BrakeSpan span = brakeSpan(brakes({"5", "12"}), 0, 40);
    EXPECT_EQ(span.begin, 0);
    EXPECT_EQ(span.end, 5);
}

TEST(BrakeSpan, GoesFromTheCurrentBrakeToTheNext)
{
    const BrakeSpan span = brakeSpan(brakes({"5", "12"}), 1, 40);
    EXPECT_EQ(span.begin, 5);
    EXPECT_EQ(span.end, 12);
}

TEST(BrakeSpan, AfterTheLastBrakeEndsWithTheClip)
{
    const BrakeSpan span = brakeSpan(brakes({"5", "12"}), 2, 40);
    EXPECT_EQ(span.begin, 12);
    EXPECT_EQ(span.end, 40);
}

TEST(BrakeSpan, ATimeThatIsNoNumberRaisesTypeMismatch)
{
    EXPECT_EQ(errorOf([] { (void)brakeSpan(brakes({"soon"}), 0, 40); }), 13);
}

TEST(BrakeTimes, AreReadWithPointAndWithComma)
{
    EXPECT_EQ(brakeSpan(brakes({"000012,50"}), 0, 40).end, 12.5);
    EXPECT_EQ(brakeSpan(brakes({"000012.50"}), 0, 40).end, 12.5);
}

TEST(BrakePast, IsStrictlyGreater)
{
    const PlaylistEntry packet = brakes({"5", "12"});
    EXPECT_FALSE(isPastNextBrake(packet, 1, 12));
    EXPECT_TRUE(isPastNextBrake(packet, 1, 12.001));
}

TEST(BrakePast, TheLastBrakeIsTheEndMarkOfThePacket)
{
    const PlaylistEntry packet = brakes({"5", "12"});
    EXPECT_FALSE(isPastNextBrake(packet, 2, 12));
    EXPECT_TRUE(isPastNextBrake(packet, 2, 12.3));
}

TEST(BrakeReached, CountsFromTheTimeItself)
{
    const PlaylistEntry packet = brakes({"5", "12"});
    EXPECT_EQ(reached(packet, 1, 11.99), BrakeDecision::Nothing);
    EXPECT_EQ(reached(packet, 1, 12), BrakeDecision::NextBrake);
}

TEST(BrakeReached, BeforeTheFirstBrakeMovesToTheFirst)
{
    EXPECT_EQ(reached(brakes({"5", "12"}), 0, 5.2), BrakeDecision::NextBrake);
}

TEST(BrakeReached, PastTheLastBrakeMovesToTheNextPacket)
{
    EXPECT_EQ(reached(brakes({"5", "12"}), 2, 12.3, 2), BrakeDecision::NextPacket);
}

TEST(BrakeReached, PastTheLastBrakeOfTheLastPacketStops)
{
    EXPECT_EQ(reached(brakes({"5", "12"}), 2, 12.3, 1), BrakeDecision::Stop);
}

TEST(BrakeAt, IsTheLastBrakeAtOrBeforeThePosition)
{
    const PlaylistEntry packet = brakes({"5", "12", "20"});
    EXPECT_EQ(brakeAt(packet, 4.9), 0);
    EXPECT_EQ(brakeAt(packet, 5), 1);
    EXPECT_EQ(brakeAt(packet, 19.9), 2);
    EXPECT_EQ(brakeAt(packet, 100), 3);
}

TEST(BrakeAt, PassesOverTimesThatAreNoNumbers)
{
    EXPECT_EQ(brakeAt(brakes({"5", "soon"}), 100), 1);
}

} // namespace orvanta
