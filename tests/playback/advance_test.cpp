#include "playback/advance.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>
#include <set>
#include <utility>
#include <vector>

namespace orvanta::test {

namespace {

/// Packets by their numbers of clips; everything is checked but what is listed.
struct Shape
{
    std::vector<int> clips;
    std::set<std::pair<int, int>> unchecked = {}; // clip 0: the packet's header

    [[nodiscard]] PlaylistShape rules() const
    {
        PlaylistShape shape;
        shape.packetCount = static_cast<qint64>(clips.size());
        shape.clipCount = [this](Int16 p) { return Int16(clips.at(p.index() - 1)); };
        shape.packetChecked = [this](Int16 p) { return !unchecked.contains({p.value(), 0}); };
        shape.clipChecked = [this](Int16 p, Int16 q) {
            return !unchecked.contains({p.value(), q.value()});
        };
        return shape;
    }
};

constexpr AdvanceOptions kAll = {.nextClip = true, .nextPacket = true, .replay = true};
constexpr AdvanceOptions kNoReplay = {.nextClip = true, .nextPacket = true, .replay = false};
constexpr AdvanceOptions kClipsOnly = {.nextClip = true, .nextPacket = false, .replay = true};

} // namespace

TEST(Advance, GoesByOptionsPlaylistAndTheClipThatEnded)
{
    struct Row
    {
        const char* says;
        AdvanceOptions options;
        Shape shape;
        Cursor ended;
        AdvanceDecision::What what;
        Cursor cursor;
    };
    using D = AdvanceDecision;
    constexpr AdvanceOptions packetsOnly = {.nextClip = false, .nextPacket = true, .replay = true};
    const Row rows[] = {
        {"the next clip of the packet", kAll, {{3}}, {1, 1}, D::Start, {1, 2}},
        {"without next clip it stays", packetsOnly, {{3}}, {1, 1}, D::Stay, {1, 1}},
        {"the first of the next packet", kAll, {{2, 2}}, {1, 2}, D::Start, {2, 1}},
        {"without next packet it stays", kClipsOnly, {{2, 2}}, {1, 2}, D::Stay, {1, 2}},
        {"then replay does not begin again", kClipsOnly, {{2}}, {1, 2}, D::Stay, {1, 2}},
        {"replay begins at the very first", kAll, {{2, 2}}, {2, 2}, D::Start, {1, 1}},
        {"without replay it is over", kNoReplay, {{2, 2}}, {2, 2}, D::Over, {1, 1}},
        {"replay of nothing: over", kAll, {{0, 0}}, {1, 0}, D::Over, {1, 1}},
        {"over packets without clips", kAll, {{1, 0, 2}}, {1, 1}, D::Start, {3, 1}},
        {"replay over an empty packet", kAll, {{0, 2}}, {2, 2}, D::Start, {2, 1}},
        {"over unchecked clips", kAll, {{4}, {{1, 2}, {1, 3}}}, {1, 1}, D::Start, {1, 4}},
        {"over an unchecked header", kAll, {{1, 3, 1}, {{2, 0}}}, {1, 1}, D::Start, {3, 1}},
        {"out of an unchecked header", kAll, {{3, 1}, {{1, 0}}}, {1, 1}, D::Start, {2, 1}},
        {"nothing checked: over in spite of replay",
         kAll,
         {{2, 1}, {{1, 1}, {1, 2}, {2, 0}}},
         {1, 1},
         D::Over,
         {1, 1}},
        {"replay of one checked clip", kAll, {{2}, {{1, 1}}}, {1, 2}, D::Start, {1, 2}},
    };
    for (const Row& row : rows) {
        const D decision = nextAfterClip(row.options, row.shape.rules(), row.ended);
        EXPECT_EQ(decision.what, row.what) << row.says;
        EXPECT_EQ(decision.cursor, row.cursor) << row.says;
    }
}

TEST(Advance, PastTheLastIndexOf16BitsRaisesOverflow)
{
    const Shape shape = {{1}};
    EXPECT_EQ(errorOf([&] { (void)nextAfterClip(kAll, shape.rules(), {1, 32767}); }), 6);
}

TEST(FirstPlace, IsTheFirstCheckedClipFromThePacketOn)
{
    const Shape shape = {{2, 2, 2}, {{2, 0}, {3, 1}}};
    EXPECT_EQ(firstPlaceFrom(shape.rules(), 2), (Cursor{3, 2}));
    EXPECT_FALSE(firstPlaceFrom(Shape{{2}}.rules(), 2).has_value()) << "past the last packet";
}

struct PlaceRow
{
    const char* says;
    Shape shape;
    Cursor current;
    std::optional<Cursor> wanted;
};

TEST(Previous, IsTheCheckedClipBefore)
{
    const PlaceRow rows[] = {
        {"the clip before", {{3}}, {1, 3}, Cursor{1, 2}},
        {"the last of the packet before", {{3, 2}}, {2, 1}, Cursor{1, 3}},
        {"the very first is its own", {{3, 2}}, {1, 1}, Cursor{1, 1}},
        {"over what is unchecked", {{2, 3, 2}, {{1, 2}, {2, 0}}}, {3, 1}, Cursor{1, 1}},
        {"over a packet without clips", {{2, 0, 1}}, {3, 1}, Cursor{1, 2}},
        {"before the first brake: the first", {{3}}, {1, 0}, Cursor{1, 1}},
        {"nothing current: no packet", {{}}, {0, 0}, Cursor{0, 1}},
    };
    for (const PlaceRow& row : rows) {
        EXPECT_EQ(previousClip(row.shape.rules(), row.current), row.wanted) << row.says;
    }
}

TEST(PlaceToBegin, IsTheFirstCheckedOneFromTheCurrentOn)
{
    const PlaceRow rows[] = {
        {"the current one", {{3, 2}}, {1, 1}, Cursor{1, 1}},
        {"the current one, further on", {{3, 2}}, {2, 2}, Cursor{2, 2}},
        {"the next checked", {{3, 2}, {{1, 1}}}, {1, 1}, Cursor{1, 2}},
        {"the next checked, next packet", {{3, 2}, {{1, 3}}}, {1, 3}, Cursor{2, 1}},
        {"round to the beginning", {{3, 2}, {{2, 2}}}, {2, 2}, Cursor{1, 1}},
        {"nothing started: the first", {{0, 2}}, {0, 0}, Cursor{2, 1}},
        {"no clip started: the first", {{2}}, {1, 0}, Cursor{1, 1}},
        {"nothing checked: none", {{2}, {{1, 0}}}, {1, 1}, std::nullopt},
        {"nothing open: none", {{}}, {0, 0}, std::nullopt},
    };
    for (const PlaceRow& row : rows) {
        EXPECT_EQ(placeToBegin(row.shape.rules(), row.current), row.wanted) << row.says;
    }
}

} // namespace orvanta::test
