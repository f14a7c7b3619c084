#include "model/tree_lines.h"
#include "tests/support/growth.h"

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
        result.append(textWithPrefix(line));
    }
    return result;
}

} // namespace

TEST(Tree, ShowsPacketsAndTheirClips)
{
    struct Row
    {
        const char* rule;
        std::vector<int> clipCounts;
        QStringList lines;
    };
    const Row rows[] = {
        {"an empty playlist is the root alone", {}, {}},
        {"one packet with three clips has five lines",
         {3},
         {u"|-- p1"_s, u"   |- p1c1"_s, u"   |- p1c2"_s, u"   |- p1c3"_s}},
        {"the vertical bar stops at the last packet",
         {1, 1},
         {u"|-- p1"_s, u"|  |- p1c1"_s, u"|-- p2"_s, u"   |- p2c1"_s}},
        {"a packet without clips shows its header only",
         {0, 1},
         {u"|-- p1"_s, u"|-- p2"_s, u"   |- p2c1"_s}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(texts(treeLines(playlist(row.clipCounts))),
                  QStringList(u"!Orvanta!"_s) + row.lines)
            << row.rule;
    }
}

// In long lists a second copy of each text would be much of the memory that they take.
TEST(Tree, KeepsNoCopyOfATextAndStaysAsItWasWhenTheTextChanges)
{
    PlaylistState state = playlist({2, 1});
    const std::vector<TreeLine> lines = treeLines(state);
    EXPECT_EQ(lines[1].text.constData(), state.packet(1).Title.constData());
    EXPECT_EQ(lines[3].text.constData(), state.packet(1).clip(2).Text.constData());
    EXPECT_EQ(lines[5].text.constData(), state.packet(2).clip(1).Text.constData());
    EXPECT_LE(sizeof(TreeLine), sizeof(QString) + sizeof(void*));
    state.Playlist[0].Clips[1].Text.append(u" changed"_s);
    EXPECT_EQ(textWithPrefix(lines[3]), u"|  |- p1c2");
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
    // The root, headers with clip 0, clips; outside the list there is none.
    const std::vector<TreeLine> lines = treeLines(playlist({2, 2}));
    const QList<std::pair<int, int>> places = {{0, 0}, {0, 0}, {1, 0}, {1, 1}, {1, 2},
                                               {2, 0}, {2, 1}, {2, 2}, {0, 0}};
    for (int line = -1; line < 8; ++line) {
        const TreePlace place = placeOfLine(lines, line);
        EXPECT_EQ(std::pair(place.packet.value(), place.clip.value()), places.at(line + 1)) << line;
    }
}

TEST(HeaderLine, IsTheFirstLineOfAPacketThatIsShown)
{
    const std::vector<TreeLine> lines = treeLines(playlist({2, 0, 1}));
    const QList<int> headers = {1, 4, 5, -1};
    for (int packet = 1; packet <= 4; ++packet) {
        EXPECT_EQ(headerLine(lines, packet), headers.at(packet - 1)) << packet;
    }
    EXPECT_EQ(headerLine({}, 1), -1);
}

TEST(TextWithoutPrefix, CutsEachOfTheThreePrefixes)
{
    const std::vector<TreeLine> lines = treeLines(playlist({1, 1}));
    EXPECT_EQ(textWithoutPrefix(lines[1]), u"p1");
    EXPECT_EQ(textWithoutPrefix(lines[2]), u"p1c1");
    EXPECT_EQ(textWithoutPrefix(lines[4]), u"p2c1");
}

TEST(TextWithoutPrefix, OfALineWithoutPrefixIsNull)
{
    EXPECT_TRUE(textWithoutPrefix(treeLines(playlist({})).front()).isNull());
    EXPECT_TRUE(textWithoutPrefix({}).isNull());
}

TEST(TextWithoutPrefix, OfAnEmptyClipTextIsEmptyButNotNull)
{
    PlaylistState state = playlist({1});
    state.Playlist[0].Clips[0].Text = QString();
    const QString text = textWithoutPrefix(treeLines(state).back());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(text.isNull());
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

TEST(Find, GoesThroughTheTextsFromTheGivenRow)
{
    struct Row
    {
        const char* rule;
        QString text;
        int from;
        int found;
    };
    const std::vector<TreeLine> lines = treeLines(playlist({2}));
    for (const Row& row :
         {Row{"without regard to case", u"P1C2"_s, 1, 3},
          Row{"without the first four characters", u"|--"_s, 1, -1},
          Row{"beginning at the row", u"p1c1"_s, 2, 2}, Row{"not wrapping", u"p1c1"_s, 3, -1},
          Row{"an empty text is nowhere", {}, 1, -1}}) {
        EXPECT_EQ(findRow(lines, row.text, row.from), row.found) << row.rule;
    }
}

TEST(Find, IgnoresCaseInRussianTexts)
{
    PlaylistState state = playlist({1});
    state.Playlist[0].Clips[0].Text = u"Урок первый"_s;
    EXPECT_EQ(findRow(treeLines(state), u"УРОК"_s, 1), 2);
}

TEST(Tree, OfTheLargestPacketCostsAsManyTimesMoreAsItHasMoreClips)
{
    const auto seconds = [](int clips) {
        const PlaylistState state = playlist({clips});
        return test::leastCpuSeconds([&] { EXPECT_EQ(treeLines(state).size(), clips + 2U); });
    };
    EXPECT_LT(test::growth(seconds(32767 / 8), seconds(32767)), 24);
}

} // namespace orvanta
