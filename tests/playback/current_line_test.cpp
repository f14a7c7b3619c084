// The line of the lesson that is on.
#include "playback/current_line.h"

#include <gtest/gtest.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

PlaylistState lesson()
{
    PlaylistState playlist;
    playlist.Playlist.resize(1);
    playlist.Playlist[0].Clips = {{.Time = {}, .Text = u"One"_s, .Path = {}},
                                  {.Time = {}, .Text = u"Two"_s, .Path = {}}};
    playlist.Playlist[0].ClipCount = 2;
    playlist.PlaylistCount = 1;
    return playlist;
}

TEST(CurrentLine, HasItsTextAndItsPlaceInThePacket)
{
    PlaylistState playlist = lesson();
    playlist.CurrentPacket = 1;
    playlist.CurrentClip = 2;
    EXPECT_EQ(currentLine(playlist), (LessonLine{.text = u"Two"_s, .number = 2, .count = 2}));
}

TEST(CurrentLine, IsNoneBeforeTheFirstBrakeAndBeyondTheLists)
{
    PlaylistState playlist = lesson();
    EXPECT_EQ(currentLine(playlist), LessonLine());
    playlist.CurrentPacket = 1;
    EXPECT_EQ(currentLine(playlist).text, QString());
    playlist.CurrentClip = 3;
    EXPECT_EQ(currentLine(playlist).number, 0);
    playlist.CurrentPacket = 2;
    EXPECT_EQ(currentLine(playlist), LessonLine());
}

TEST(CurrentLine, OfBrakesTheEndMarkIsNone)
{
    PlaylistState playlist = lesson();
    PlaylistEntry& packet = playlist.Playlist[0];
    packet.HasBrakes = true;
    packet.Clips[0].Time = u"1.5"_s;
    packet.Clips[1].Time = u"4"_s;
    packet.Clips.push_back({.Time = u"9"_s, .Text = u"End"_s, .Path = {}});
    packet.Clips.push_back({.Time = u"spoilt"_s, .Text = u"Four"_s, .Path = {}});
    packet.ClipCount = 4;
    playlist.CurrentPacket = 1;
    playlist.CurrentClip = 2;
    EXPECT_EQ(currentLine(playlist), (LessonLine{.text = u"Two"_s, .number = 2, .count = 2}));
    playlist.CurrentClip = 3;
    EXPECT_EQ(currentLine(playlist), (LessonLine{.text = u"End"_s, .number = 0, .count = 2}));
}

TEST(CurrentMarks, AreTheBrakesWhoseTimesCanBeReadAndTheLastIsTheEnd)
{
    PlaylistState playlist = lesson();
    PlaylistEntry& packet = playlist.Playlist[0];
    playlist.CurrentPacket = 1;
    EXPECT_TRUE(currentMarks(playlist).empty());
    packet.HasBrakes = true;
    packet.Clips[0].Time = u"1.5"_s;
    packet.Clips[1].Time = u"4"_s;
    packet.Clips.push_back({.Time = u"spoilt"_s, .Text = u"Three"_s, .Path = {}});
    EXPECT_EQ(currentMarks(playlist),
              (std::vector<LessonMark>{{.seconds = 1.5, .text = u"One"_s, .isEnd = false},
                                       {.seconds = 4, .text = u"Two"_s, .isEnd = true}}));
    playlist.CurrentPacket = 0;
    EXPECT_TRUE(currentMarks(playlist).empty());
}

} // namespace
