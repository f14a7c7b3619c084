#include "playback/advance.h"
#include "tests/support/error_of.h"

#include <gtest/gtest.h>
#include <set>
#include <utility>
#include <vector>

namespace orvanta {

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

AdvanceDecision after(const AdvanceOptions& options, const Shape& shape, Cursor ended)
{
    return nextAfterClip(options, shape.rules(), ended);
}

void expectStart(const AdvanceDecision& decision, Cursor place)
{
    EXPECT_EQ(decision.what, AdvanceDecision::Start);
    EXPECT_EQ(decision.cursor, place);
}

void expectStay(const AdvanceDecision& decision, Cursor place)
{
    EXPECT_EQ(decision.what, AdvanceDecision::Stay);
    EXPECT_EQ(decision.cursor, place);
}

} // namespace

TEST(Advance, GoesToTheNextClipOfThePacket)
{
    expectStart(after(kAll, {{3}}, {1, 1}), {1, 2});
}

TEST(Advance, WithoutNextClipTheCursorStaysOnTheClipThatEnded)
{
    const AdvanceOptions options = {.nextClip = false, .nextPacket = true, .replay = true};
    expectStay(after(options, {{3}}, {1, 1}), {1, 1});
}

TEST(Advance, GoesToTheFirstClipOfTheNextPacketAfterTheLastOne)
{
    expectStart(after(kAll, {{2, 2}}, {1, 2}), {2, 1});
}

TEST(Advance, WithoutNextPacketTheCursorStaysOnTheLastClipOfItsPacket)
{
    expectStay(after(kClipsOnly, {{2, 2}}, {1, 2}), {1, 2});
}

TEST(Advance, WithoutNextPacketReplayDoesNotBeginAgain)
{
    expectStay(after(kClipsOnly, {{2}}, {1, 2}), {1, 2});
}

TEST(Advance, ReplayBeginsAtTheFirstClipOfTheFirstPacket)
{
    expectStart(after(kAll, {{2, 2}}, {2, 2}), {1, 1});
}

TEST(Advance, WithoutReplayPlaybackIsOverAfterTheLastClipOfTheLastPacket)
{
    const AdvanceDecision decision = after(kNoReplay, {{2, 2}}, {2, 2});
    EXPECT_EQ(decision.what, AdvanceDecision::Over);
    EXPECT_EQ(decision.cursor, (Cursor{1, 1}));
}

TEST(Advance, ReplayOfAnEmptyPlaylistIsOverAfterOnePass)
{
    EXPECT_EQ(after(kAll, {{0, 0}}, {1, 0}).what, AdvanceDecision::Over);
}

TEST(Advance, PassesOverPacketsWithoutClips)
{
    expectStart(after(kAll, {{1, 0, 2}}, {1, 1}), {3, 1});
}

TEST(Advance, ReplayPassesOverAnEmptyFirstPacket)
{
    expectStart(after(kAll, {{0, 2}}, {2, 2}), {2, 1});
}

TEST(Advance, PassesOverUncheckedClips)
{
    expectStart(after(kAll, {{4}, {{1, 2}, {1, 3}}}, {1, 1}), {1, 4});
}

TEST(Advance, PassesOverAPacketWhoseHeaderIsUnchecked)
{
    expectStart(after(kAll, {{1, 3, 1}, {{2, 0}}}, {1, 1}), {3, 1});
}

TEST(Advance, LeavesAPacketWhoseHeaderIsUnchecked)
{
    expectStart(after(kAll, {{3, 1}, {{1, 0}}}, {1, 1}), {2, 1});
}

TEST(Advance, WithNothingCheckedPlaybackIsOverEvenWithReplay)
{
    const Shape shape = {{2, 1}, {{1, 1}, {1, 2}, {2, 0}}};
    EXPECT_EQ(after(kAll, shape, {1, 1}).what, AdvanceDecision::Over);
}

TEST(Advance, ReplayOfOneSingleCheckedClipStartsItAgain)
{
    expectStart(after(kAll, {{2}, {{1, 1}}}, {1, 2}), {1, 2});
}

TEST(Advance, PastTheLastIndexOf16BitsRaisesOverflow)
{
    EXPECT_EQ(errorOf([] { (void)after(kAll, {{1}}, {1, 32767}); }), 6);
}

TEST(FirstPlace, IsTheFirstCheckedClipFromThePacketOn)
{
    const Shape shape = {{2, 2, 2}, {{2, 0}, {3, 1}}};
    EXPECT_EQ(firstPlaceFrom(shape.rules(), 2), (Cursor{3, 2}));
}

TEST(FirstPlace, IsNonePastTheLastPacket)
{
    EXPECT_FALSE(firstPlaceFrom(Shape{{2}}.rules(), 2).has_value());
}

TEST(Previous, IsTheClipBefore)
{
    EXPECT_EQ(previousClip(Shape{{3}}.rules(), {1, 3}), (Cursor{1, 2}));
}

TEST(Previous, OfTheFirstClipIsTheLastOfThePacketBefore)
{
    EXPECT_EQ(previousClip(Shape{{3, 2}}.rules(), {2, 1}), (Cursor{1, 3}));
}

TEST(Previous, OfTheVeryFirstClipIsThatClip)
{
    EXPECT_EQ(previousClip(Shape{{3, 2}}.rules(), {1, 1}), (Cursor{1, 1}));
}

TEST(Previous, PassesOverUncheckedClipsAndPackets)
{
    const Shape shape = {{2, 3, 2}, {{1, 2}, {2, 0}}};
    EXPECT_EQ(previousClip(shape.rules(), {3, 1}), (Cursor{1, 1}));
}

TEST(Previous, PassesOverAPacketWithoutClips)
{
    EXPECT_EQ(previousClip(Shape{{2, 0, 1}}.rules(), {3, 1}), (Cursor{1, 2}));
}

TEST(Previous, BeforeTheFirstBrakeIsTheFirst)
{
    EXPECT_EQ(previousClip(Shape{{3}}.rules(), {1, 0}), (Cursor{1, 1}));
}

TEST(Previous, WithNothingCurrentThereIsNone)
{
    EXPECT_LT(previousClip(Shape{{}}.rules(), {0, 0}).packet, 1);
}

TEST(PlaceToBegin, IsTheCurrentPlaceWhenItIsChecked)
{
    EXPECT_EQ(placeToBegin(Shape{{3, 2}}.rules(), {1, 1}), (Cursor{1, 1}));
    EXPECT_EQ(placeToBegin(Shape{{3, 2}}.rules(), {2, 2}), (Cursor{2, 2}));
}

TEST(PlaceToBegin, IsTheNextCheckedOneWhenTheCurrentIsNot)
{
    EXPECT_EQ(placeToBegin(Shape{{3, 2}, {{1, 1}}}.rules(), {1, 1}), (Cursor{1, 2}));
    EXPECT_EQ(placeToBegin(Shape{{3, 2}, {{1, 3}}}.rules(), {1, 3}), (Cursor{2, 1}));
}

TEST(PlaceToBegin, ComesRoundToTheBeginning)
{
    EXPECT_EQ(placeToBegin(Shape{{3, 2}, {{2, 2}}}.rules(), {2, 2}), (Cursor{1, 1}));
}

TEST(PlaceToBegin, IsTheFirstWhenNothingHasBeenStarted)
{
    EXPECT_EQ(placeToBegin(Shape{{0, 2}}.rules(), {0, 0}), (Cursor{2, 1}));
    EXPECT_EQ(placeToBegin(Shape{{2}}.rules(), {1, 0}), (Cursor{1, 1}));
}

TEST(PlaceToBegin, IsNoneWhenNothingIsCheckedOrOpen)
{
    EXPECT_EQ(placeToBegin(Shape{{2}, {{1, 0}}}.rules(), {1, 1}), std::nullopt);
    EXPECT_EQ(placeToBegin(Shape{{}}.rules(), {0, 0}), std::nullopt);
}

} // namespace orvanta
