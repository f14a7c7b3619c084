#include "playback/brakes.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace orvanta::test {

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

} // namespace

TEST(BrakeSpan, GoesFromTheCurrentBrakeToTheNext)
{
    struct Row
    {
        int current;
        double begin, end;
    };
    // Before the first it begins at zero, after the last it ends with the clip.
    for (const Row& row : {Row{0, 0, 5}, Row{1, 5, 12}, Row{2, 12, 40}}) {
        const BrakeSpan span = brakeSpan(brakes({"5", "12"}), row.current, 40);
        EXPECT_EQ(span.begin, row.begin) << row.current;
        EXPECT_EQ(span.end, row.end) << row.current;
    }
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

TEST(BrakePast, IsStrictlyGreaterForTheLastBrakeTheEndMarkToo)
{
    const PlaylistEntry packet = brakes({"5", "12"});
    for (const int current : {1, 2}) {
        EXPECT_FALSE(isPastNextBrake(packet, current, 12)) << current;
        EXPECT_TRUE(isPastNextBrake(packet, current, 12.001)) << current;
    }
}

TEST(BrakeReached, CountsFromTheTimeItself)
{
    struct Row
    {
        const char* says;
        int current;
        double position;
        int packetCount;
        BrakeDecision::What wanted;
    };
    const Row rows[] = {
        {"not yet", 1, 11.99, 1, BrakeDecision::Nothing},
        {"at the time", 1, 12, 1, BrakeDecision::NextBrake},
        {"before the first: to the first", 0, 5.2, 1, BrakeDecision::NextBrake},
        {"past the last", 2, 12.3, 2, BrakeDecision::NextPacket},
        {"past the last of all", 2, 12.3, 1, BrakeDecision::Stop},
    };
    for (const Row& row : rows) {
        const PlaylistEntry packet = brakes({"5", "12"});
        EXPECT_EQ(brakeReached(packet, row.current, 1, row.packetCount, row.position).what,
                  row.wanted)
            << row.says;
    }
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

} // namespace orvanta::test
