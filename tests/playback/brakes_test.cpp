#include "playback/brakes.h"

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

bool allChecked(Int16 /*brake*/)
{
    return true;
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

TEST(BrakeSpan, GoesFromOneReadableTimeToTheNext)
{
    struct Row
    {
        int current;
        double begin, end;
    };
    for (const Row& row :
         {Row{0, 0, 5}, Row{1, 5, 12}, Row{2, 5, 12}, Row{3, 12, 40}, Row{4, 12, 40}}) {
        const BrakeSpan span = brakeSpan(brakes({"5", "soon", "12", ""}), row.current, 40);
        EXPECT_EQ(span.begin, row.begin) << row.current;
        EXPECT_EQ(span.end, row.end) << row.current;
    }
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
        BrakeDecision::What wanted;
        int brake;
    };
    const Row rows[] = {
        {"not yet", 1, 11.99, BrakeDecision::Nothing, 0},
        {"at the time", 1, 12, BrakeDecision::Reach, 2},
        {"before the first: to the first", 0, 5.2, BrakeDecision::Reach, 1},
        {"past the last", 2, 12.3, BrakeDecision::Leave, 0},
    };
    for (const Row& row : rows) {
        const BrakeDecision decision =
            brakeReached(brakes({"5", "12"}), row.current, row.position, allChecked);
        EXPECT_EQ(decision.what, row.wanted) << row.says;
        EXPECT_EQ(decision.brake, row.brake) << row.says;
    }
}

TEST(BrakeReached, UncheckedIsPassedOverToTheNextCheckedBrakeElseThePacketIsLeft)
{
    struct Row
    {
        const char* says;
        int checked;
        BrakeDecision::What wanted;
        int brake;
    };
    const Row rows[] = {
        {"checked itself", 2, BrakeDecision::Reach, 2},
        {"the one behind", 3, BrakeDecision::Skip, 3},
        {"the end mark", 4, BrakeDecision::Skip, 4},
        {"none", 0, BrakeDecision::Leave, 0},
    };
    for (const Row& row : rows) {
        const BrakeDecision decision =
            brakeReached(brakes({"5", "12", "20", "30"}), 1, 12.04,
                         [&](Int16 brake) { return brake == row.checked; });
        EXPECT_EQ(decision.what, row.wanted) << row.says;
        EXPECT_EQ(decision.brake, row.brake) << row.says;
    }
}

TEST(BrakeReached, TheEndMarkIsReachedEvenUnchecked)
{
    const BrakeDecision decision =
        brakeReached(brakes({"5", "12"}), 1, 12.04, [](Int16) { return false; });
    EXPECT_EQ(decision.what, BrakeDecision::Reach);
    EXPECT_EQ(decision.brake, 2);
}

TEST(EndMark, IsTheLastBrakeWhoseTimeCanBeRead)
{
    const PlaylistEntry packet = brakes({"5", "12", "", "soon"});
    EXPECT_EQ(timeOfNextBrake(packet, 2), 12);
    EXPECT_EQ(brakeReached(packet, 2, 12.1, allChecked).what, BrakeDecision::Leave);
    // A line behind it that somebody started by hand.
    EXPECT_EQ(brakeReached(packet, 3, 12.1, allChecked).what, BrakeDecision::Leave);
    EXPECT_TRUE(endPassesLastBrake(packet, 12.5));
}

TEST(EndMark, IsThereOnlyWhereATimeCanBeRead)
{
    const PlaylistEntry packet = brakes({"", "soon"});
    EXPECT_EQ(timeOfNextBrake(packet, 1), std::nullopt);
    EXPECT_EQ(brakeReached(packet, 1, 39, allChecked).what, BrakeDecision::Nothing);
    EXPECT_FALSE(endPassesLastBrake(packet, 12));
    EXPECT_EQ(brakeAt(packet, 39), 0);
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
