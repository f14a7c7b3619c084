#include "model/tree_lines.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// Packets titled p1, p2, ... with clips named p1c1, p1c2, ...
PlaylistState playlist(const std::vector<int>& clipCounts)
{
    PlaylistState state;
    for (const int clips : clipCounts) {
        state.PlaylistCount += 1;
        PlaylistEntry packet;
        packet.Title = u"p%1"_s.arg(state.PlaylistCount.value());
        for (int q = 1; q <= clips; ++q) {
            const QString text = packet.Title + u"c%1"_s.arg(q);
            packet.Clips.push_back({.Time = {}, .Text = text, .Path = {}});
        }
        packet.ClipCount = clips;
        state.Playlist.push_back(packet);
    }
    return state;
}

QStringList texts(const std::vector<TreeLine>& lines)
{
    QStringList result;
    for (const TreeLine& line : lines) {
        result.append(line.text);
    }
    return result;
}

void expectPlace(const TreePlace& place, int packet, int clip)
{
    EXPECT_EQ(place.packet.value(), packet);
    EXPECT_EQ(place.clip.value(), clip);
}

} // namespace

TEST(Tree, OfAnEmptyPlaylistIsTheRootAlone)
{
    EXPECT_EQ(texts(treeLines({})), QStringList(u"!Orvanta!"_s));
}

TEST(Tree, OfOnePacketWithThreeClipsHasFiveLines)
{
    EXPECT_EQ(texts(treeLines(playlist({3}))),
              (QStringList{u"!Orvanta!"_s, u"|-- p1"_s, u"   |- p1c1"_s, u"   |- p1c2"_s,
                           u"   |- p1c3"_s}));
}

TEST(Tree, TheVerticalBarStopsAtTheLastPacket)
{
    EXPECT_EQ(
        texts(treeLines(playlist({1, 1}))),
        (QStringList{u"!Orvanta!"_s, u"|-- p1"_s, u"|  |- p1c1"_s, u"|-- p2"_s, u"   |- p2c1"_s}));
}

TEST(Tree, APacketWithoutClipsShowsItsHeaderOnly)
{
    EXPECT_EQ(texts(treeLines(playlist({0, 1}))),
              (QStringList{u"!Orvanta!"_s, u"|-- p1"_s, u"|-- p2"_s, u"   |- p2c1"_s}));
}

TEST(Tree, LinesCarryTheNumberOfTheirPacket)
{
    const std::vector<TreeLine> lines = treeLines(playlist({1, 2}));
    const std::vector<int> expected = {0, 1, 1, 2, 2, 2};
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].packet.value(), expected[i]) << i;
    }
}

TEST(PlaceOfLine, IsPacketAndClip)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2, 2}));
    expectPlace(placeOfLine(lines, 2), 1, 1);
    expectPlace(placeOfLine(lines, 3), 1, 2);
    expectPlace(placeOfLine(lines, 6), 2, 2);
}

TEST(PlaceOfLine, OfAHeaderHasNoClip)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2, 2}));
    expectPlace(placeOfLine(lines, 1), 1, 0);
    expectPlace(placeOfLine(lines, 4), 2, 0);
}

TEST(PlaceOfLine, OfTheRootIsNoClip)
{
    EXPECT_EQ(placeOfLine(treeLines(playlist({2})), 0).clip, 0);
}

TEST(PlaceOfLine, OutsideTheListIsNone)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2}));
    expectPlace(placeOfLine(lines, -1), 0, 0);
    expectPlace(placeOfLine(lines, 4), 0, 0);
}

TEST(HeaderLine, IsTheFirstLineOfThePacket)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2, 0, 1}));
    EXPECT_EQ(headerLine(lines, 1), 1);
    EXPECT_EQ(headerLine(lines, 2), 4);
    EXPECT_EQ(headerLine(lines, 3), 5);
}

TEST(HeaderLine, OfAPacketThatIsNotShownIsNone)
{
    EXPECT_EQ(headerLine(treeLines(playlist({2})), 2), -1);
    EXPECT_EQ(headerLine({}, 1), -1);
}

TEST(TextWithoutPrefix, CutsEachOfTheThreePrefixes)
{
    EXPECT_EQ(textWithoutPrefix(u"|-- Lesson"_s), u"Lesson");
    EXPECT_EQ(textWithoutPrefix(u"|  |- first"_s), u"first");
    EXPECT_EQ(textWithoutPrefix(u"   |- last"_s), u"last");
}

TEST(TextWithoutPrefix, OfALineWithoutPrefixIsNull)
{
    EXPECT_TRUE(textWithoutPrefix(u"!Orvanta!"_s).isNull());
    EXPECT_TRUE(textWithoutPrefix({}).isNull());
}

TEST(TextWithoutPrefix, OfAnEmptyClipTextIsEmptyButNotNull)
{
    EXPECT_TRUE(textWithoutPrefix(u"   |- "_s).isEmpty());
    EXPECT_FALSE(textWithoutPrefix(u"   |- "_s).isNull());
}

TEST(RowUnderPointer, FollowsTheFixedMarginAndLineHeight)
{
    struct Row
    {
        double yTwips;
        int topIndex;
        int row;
    };
    for (const Row& row : {Row{15.0 * 6, 0, 0}, Row{15.0 * 12, 0, 0}, Row{15.0 * 13, 0, 1},
                           Row{15.0 * 19, 0, 1}, Row{15.0 * 32, 0, 2}, Row{15.0 * 19, 40, 41}}) {
        EXPECT_EQ(rowUnderPointer(row.yTwips, row.topIndex), row.row) << row.yTwips;
    }
}

TEST(RowUnderPointer, PartsOfAPixelAreCutDownwards)
{
    EXPECT_EQ(rowUnderPointer(15.0 * 12.99, 0), 0); // 6.99 pixels below the margin count as 6
}

TEST(Find, IgnoresCaseAndTheFirstFourCharacters)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2}));
    EXPECT_EQ(findRow(lines, u"P1C2"_s, 1), 3);
    EXPECT_EQ(findRow(lines, u"|--"_s, 1), -1);
}

TEST(Find, BeginsAtTheGivenRowAndDoesNotWrap)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2}));
    EXPECT_EQ(findRow(lines, u"p1c1"_s, 2), 2);
    EXPECT_EQ(findRow(lines, u"p1c1"_s, 3), -1);
}

TEST(Find, OfAnEmptyTextFindsNothing)
{
    EXPECT_EQ(findRow(treeLines(playlist({2})), {}, 1), -1);
}

TEST(Find, IgnoresCaseInRussianTexts)
{
    PlaylistState state = playlist({1});
    state.Playlist[0].Clips[0].Text = u"Урок первый"_s;
    EXPECT_EQ(findRow(treeLines(state), u"УРОК"_s, 1), 2);
}

TEST(Tree, OfTheLargestPacketCostsLittle)
{
    const PlaylistState state = playlist({32767});
    QElapsedTimer timer;
    timer.start();
    const std::vector<TreeLine> lines = treeLines(state);
    EXPECT_EQ(lines.size(), 32769U);
    EXPECT_LT(timer.elapsed(), 500);
}

} // namespace orvanta
