// Editing what is open: each change by itself, and taken back.
#include "tests/model/editing/lesson_room.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class EditedLesson : public testing::Test
{
protected:
    void SetUp() override { whole = wholeTextOf(playlist); }

    /// What was done goes back in one step, and forth again to the same.
    void expectOneStep()
    {
        const QString after = wholeTextOf(playlist);
        EXPECT_NE(after, whole);
        editing.undo();
        EXPECT_EQ(wholeTextOf(playlist), whole);
        EXPECT_FALSE(editing.canUndo());
        editing.redo();
        EXPECT_EQ(wholeTextOf(playlist), after);
    }

    PlaylistState playlist = playlistOf({
        clipsPacket(u"One"_s, {u"a"_s, u"b"_s, u"c"_s}),
        brakesPacket(u"Two"_s, {u"000000.00"_s, u"000010.00"_s, u"000060.00"_s}),
        clipsPacket(u"Three"_s, {u"d"_s}),
    });
    LessonEditing editing{playlist};
    QString whole;
    MarkSetting onFilm{.line = {2, 1}, .duration = 60, .endText = u"End"_s};
};

TEST_F(EditedLesson, GetsAMarkInTheOrderOfTime)
{
    const auto place = editing.mark(onFilm, {12.345, u"here"_s});
    EXPECT_EQ(place, (EditPlace{2, 3}));
    EXPECT_EQ(timesOf(playlist.packet(2)),
              (QStringList{u"000000.00"_s, u"000010.00"_s, u"000012.35"_s, u"000060.00"_s}));
    EXPECT_EQ(playlist.packet(2).ClipCount, 4);
    EXPECT_EQ(editing.undoName(), EditName::Mark);
    expectOneStep();
}

TEST_F(EditedLesson, HasNoSecondMarkAtTheSameTime)
{
    EXPECT_EQ(editing.mark(onFilm, {10.004, u"again"_s}), (EditPlace{2, 2}));
    EXPECT_FALSE(editing.canUndo());
    EXPECT_EQ(wholeTextOf(playlist), whole);
}

TEST_F(EditedLesson, MakesABrakePacketOfAPacketOfOneClipWithAnEndMark)
{
    const auto place = editing.mark({{3, 1}, 42.5, u"End"_s}, {7, u"verse"_s});
    EXPECT_EQ(place, (EditPlace{3, 1}));
    const PlaylistEntry& packet = playlist.packet(3);
    EXPECT_TRUE(packet.HasBrakes);
    EXPECT_EQ(packet.MediaFile, u"/m/d.mp4");
    EXPECT_EQ(textsOf(packet), (QStringList{u"verse"_s, u"End"_s}));
    EXPECT_EQ(timesOf(packet), (QStringList{u"000007.00"_s, u"000042.50"_s}));
    expectOneStep();
}

TEST_F(EditedLesson, GetsABrakePacketBehindAListOfClips)
{
    const auto place = editing.mark({{1, 2}, 30, u"End"_s}, {4, u"verse"_s});
    EXPECT_EQ(place, (EditPlace{2, 1}));
    ASSERT_EQ(playlist.PlaylistCount, 4);
    EXPECT_FALSE(playlist.packet(1).HasBrakes);
    EXPECT_EQ(playlist.packet(2).Title, u"b");
    EXPECT_EQ(playlist.packet(2).MediaFile, u"/m/b.mp4");
    EXPECT_EQ(playlist.packet(3).Title, u"Two");
    expectOneStep();
}

TEST_F(EditedLesson, CannotBeMarkedWhereNoLineIs)
{
    EXPECT_FALSE(editing.mark({{0, 0}, 30, {}}, {4, u"x"_s}));
    EXPECT_FALSE(editing.mark({{1, 0}, 30, {}}, {4, u"x"_s}));
    EXPECT_FALSE(editing.mark({{4, 1}, 30, {}}, {4, u"x"_s}));
    EXPECT_FALSE(editing.mark({{1, 4}, 30, {}}, {4, u"x"_s}));
    EXPECT_EQ(wholeTextOf(playlist), whole);
}

TEST_F(EditedLesson, TakesManyMarksAsOneStep)
{
    EXPECT_EQ(editing.addMarks(onFilm, {{20, u"x"_s}, {5, u"y"_s}, {10, u"there"_s}, {20, u"z"_s}}),
              2);
    EXPECT_EQ(timesOf(playlist.packet(2)),
              (QStringList{u"000000.00"_s, u"000005.00"_s, u"000010.00"_s, u"000020.00"_s,
                           u"000060.00"_s}));
    EXPECT_EQ(editing.undoName(), EditName::Suggest);
    expectOneStep();
}

TEST_F(EditedLesson, CountsSuggestedMarksOfAClipWithoutTheEndMark)
{
    EXPECT_EQ(editing.addMarks({{3, 1}, 42.5, u"End"_s}, {{2, u"x"_s}, {1, u"y"_s}}), 2);
    EXPECT_EQ(textsOf(playlist.packet(3)), (QStringList{u"y"_s, u"x"_s, u"End"_s}));
    expectOneStep();
}

TEST_F(EditedLesson, HasTextsAsADocumentHoldsThem)
{
    EXPECT_TRUE(editing.setText({1, 2}, u"  two\nlines "_s));
    EXPECT_EQ(playlist.packet(1).clip(2).Text, u"two lines");
    EXPECT_FALSE(editing.setText({1, 2}, u"two lines"_s));
    EXPECT_FALSE(editing.setText({1, 9}, u"nowhere"_s));
    expectOneStep();
}

TEST_F(EditedLesson, HasTitlesOnlyWhereDocumentsHoldThem)
{
    EXPECT_TRUE(editing.setText({2, 0}, u"Film"_s));
    EXPECT_EQ(playlist.packet(2).Title, u"Film");
    expectOneStep();
    PlaylistState one = playlistOf({clipsPacket(u"fixed"_s, {u"a"_s})});
    one.Document = u"/m/a.vxl"_s;
    LessonEditing single(one);
    EXPECT_FALSE(single.setText({1, 0}, u"Film"_s));
    EXPECT_FALSE(single.setPicture(1, u"/m/p.png"_s));
    one.Document = u"/m/a.VXG"_s;
    EXPECT_TRUE(single.setText({1, 0}, u"Film"_s));
    EXPECT_TRUE(single.setPicture(1, u"/m/p.png"_s));
}

TEST_F(EditedLesson, KeepsBrakesInTheOrderOfTime)
{
    EXPECT_EQ(editing.setTime({2, 1}, 20), (EditPlace{2, 2}));
    EXPECT_EQ(textsOf(playlist.packet(2)),
              (QStringList{u"at 000010.00"_s, u"at 000000.00"_s, u"at 000060.00"_s}));
    EXPECT_EQ(editing.setTime({2, 1}, 10), std::nullopt);
    EXPECT_EQ(editing.setTime({1, 1}, 10), std::nullopt);
    expectOneStep();
}

TEST_F(EditedLesson, LosesSeveralLinesAndPacketsInOneStep)
{
    EXPECT_TRUE(editing.remove({{1, 3}, {2, 2}, {1, 1}, {3, 0}, {3, 1}}));
    ASSERT_EQ(playlist.PlaylistCount, 2);
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"b"_s}));
    EXPECT_EQ(timesOf(playlist.packet(2)), (QStringList{u"000000.00"_s, u"000060.00"_s}));
    expectOneStep();
}

TEST_F(EditedLesson, LosesLinesOneAboveTheOtherAtOnce)
{
    std::size_t changes = 0;
    QObject::connect(&editing, &LessonEditing::edited,
                     [&](const EditStep& step) { changes = step.changes.size(); });
    EXPECT_TRUE(editing.remove({{1, 1}, {1, 2}, {2, 1}, {2, 2}, {2, 3}, {3, 1}}));
    EXPECT_EQ(changes, 4U); // the last brake by itself: its packet is one clip again
    EXPECT_EQ(playlist.packet(1).ClipCount, 1);
    EXPECT_EQ(textsOf(playlist.packet(2)), (QStringList{u"film"_s}));
    EXPECT_EQ(playlist.packet(3).ClipCount, 0);
    expectOneStep();
}

TEST_F(EditedLesson, IsOneClipAgainWithoutItsLastBrake)
{
    EXPECT_TRUE(editing.remove({{2, 1}, {2, 2}, {2, 3}}));
    EXPECT_FALSE(playlist.packet(2).HasBrakes);
    EXPECT_EQ(playlist.packet(2).clip(1).Path, u"/m/film.mp4");
    expectOneStep();
}

TEST_F(EditedLesson, NeverLosesItsLastPacket)
{
    EXPECT_FALSE(editing.remove({{1, 0}, {2, 0}, {3, 0}}));
    EXPECT_FALSE(editing.remove({}));
    EXPECT_FALSE(editing.remove({{7, 0}, {1, 8}}));
    EXPECT_EQ(wholeTextOf(playlist), whole);
}

TEST_F(EditedLesson, MovesSeveralClipsByOneAndStopsThemAtTheEnds)
{
    EXPECT_TRUE(editing.moveBy({{1, 2}, {1, 3}}, -1));
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"b"_s, u"c"_s, u"a"_s}));
    EXPECT_FALSE(editing.moveBy({{1, 1}, {1, 2}}, -1));
    EXPECT_TRUE(editing.moveBy({{1, 1}, {1, 3}}, 1));
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
    EXPECT_FALSE(editing.moveBy({{2, 1}}, 1));
}

TEST_F(EditedLesson, MovesPackets)
{
    EXPECT_TRUE(editing.moveBy({{1, 0}}, 1));
    EXPECT_EQ(playlist.packet(2).Title, u"One");
    expectOneStep();
    EXPECT_TRUE(editing.moveTo({{3, 0}, {1, 0}}, {2, 0}));
    EXPECT_EQ(playlist.packet(1).Title, u"Two");
    EXPECT_EQ(playlist.packet(2).Title, u"Three");
    EXPECT_EQ(playlist.packet(3).Title, u"One");
}

TEST_F(EditedLesson, TakesClipsToAnotherPlaceAndPacket)
{
    EXPECT_TRUE(editing.moveTo({{1, 3}, {1, 1}}, {3, 1}));
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"b"_s}));
    EXPECT_EQ(textsOf(playlist.packet(3)), (QStringList{u"a"_s, u"c"_s, u"d"_s}));
    expectOneStep();
    EXPECT_TRUE(editing.moveTo({{3, 1}}, {3, 4}));
    EXPECT_EQ(textsOf(playlist.packet(3)), (QStringList{u"c"_s, u"d"_s, u"a"_s}));
    EXPECT_FALSE(editing.moveTo({{3, 3}}, {3, 4}));
    EXPECT_FALSE(editing.moveTo({{3, 1}}, {2, 1}));
    EXPECT_FALSE(editing.moveTo({{2, 1}}, {3, 1}));
}

TEST_F(EditedLesson, FindsAClipFromAnotherFolderWhereverItIsTaken)
{
    playlist.Playlist[0].Folder = u"/a/"_s;
    playlist.Playlist[2].Folder = u"/b/"_s;
    playlist.Playlist[0].Clips[0].Path = u"sub\\film.mp4"_s;
    const QString before = wholeTextOf(playlist);
    const int lines = playlist.packet(3).ClipCount.value();
    ASSERT_TRUE(editing.moveTo({{1, 1}}, {3, 1}));
    EXPECT_EQ(playlist.packet(3).clip(1).Path, u"/a/sub/film.mp4");
    EXPECT_EQ(playlist.packet(3).ClipCount, lines + 1);
    editing.undo();
    EXPECT_EQ(wholeTextOf(playlist), before);
    ASSERT_TRUE(editing.moveTo({{1, 1}}, {1, 3})); // within its packet
    EXPECT_EQ(playlist.packet(1).clip(2).Path, u"sub\\film.mp4");
}

TEST_F(EditedLesson, TakesFilesBetweenTwoLines)
{
    EXPECT_TRUE(editing.insertClips({1, 2}, {u"/m/x.mp4"_s, u"/m/y.mp4"_s}, {u"x"_s, u"y"_s}));
    EXPECT_EQ(textsOf(playlist.packet(1)), (QStringList{u"a"_s, u"x"_s, u"y"_s, u"b"_s, u"c"_s}));
    EXPECT_FALSE(editing.insertClips({2, 1}, {u"/m/x.mp4"_s}, {u"x"_s}));
    expectOneStep();
}

TEST_F(EditedLesson, RefusesALineTooManyWithNothingChanged)
{
    QStringList paths;
    for (int i = 0; i < 32765; ++i) {
        paths.append(u"/m/x.mp4"_s);
    }
    EXPECT_THROW(editing.insertClips({1, 1}, paths, paths), RuntimeError);
    EXPECT_EQ(wholeTextOf(playlist), whole);
    EXPECT_FALSE(editing.canUndo());
}

TEST_F(EditedLesson, KnowsWhetherItDiffersFromWhatIsSaved)
{
    EXPECT_FALSE(editing.isChanged());
    editing.setText({1, 1}, u"x"_s);
    EXPECT_TRUE(editing.isChanged());
    editing.noteSaved();
    EXPECT_FALSE(editing.isChanged());
    editing.undo();
    EXPECT_TRUE(editing.isChanged());
    editing.redo();
    EXPECT_FALSE(editing.isChanged());
    editing.undo();
    editing.setText({1, 1}, u"y"_s); // what was saved can no longer be redone
    EXPECT_TRUE(editing.isChanged());
    editing.undo();
    EXPECT_TRUE(editing.isChanged());
}

TEST_F(EditedLesson, TellsWhereLinesHaveGone)
{
    EditStep last;
    QObject::connect(&editing, &LessonEditing::edited, [&](const EditStep& step) { last = step; });
    editing.remove({{1, 1}});
    EXPECT_EQ(placeAfter(last, {1, 1}), std::nullopt);
    EXPECT_EQ(placeAfter(last, {1, 3}), (EditPlace{1, 2}));
    EXPECT_EQ(placeAfter(last, {2, 3}), (EditPlace{2, 3}));
    editing.undo();
    EXPECT_EQ(placeAfter(last, {1, 2}), (EditPlace{1, 3}));
    editing.moveTo({{1, 1}}, {3, 1});
    EXPECT_EQ(placeAfter(last, {1, 1}), (EditPlace{3, 1}));
    EXPECT_EQ(placeAfter(last, {3, 1}), (EditPlace{3, 2}));
    EXPECT_EQ(placeAfter(last, {1, 2}), (EditPlace{1, 1}));
    editing.remove({{2, 0}});
    EXPECT_EQ(placeAfter(last, {2, 1}), std::nullopt);
    EXPECT_EQ(placeAfter(last, {3, 1}), (EditPlace{2, 1}));
}

TEST_F(EditedLesson, GetsWholePacketsWhereTheyBelong)
{
    const std::vector more = {clipsPacket(u"New"_s, {u"x"_s}), clipsPacket(u"Newer"_s, {u"y"_s})};
    ASSERT_TRUE(editing.insertPackets(2, more));
    ASSERT_EQ(playlist.PlaylistCount, 5);
    EXPECT_EQ(playlist.packet(2).Title, u"New");
    EXPECT_EQ(playlist.packet(3).Title, u"Newer");
    EXPECT_EQ(playlist.packet(4).Title, u"Two");
    expectOneStep();
}

TEST_F(EditedLesson, GetsNoPacketsOutsideOrNoneAtAll)
{
    const std::vector more = {clipsPacket(u"New"_s, {u"x"_s})};
    EXPECT_FALSE(editing.insertPackets(0, more));
    EXPECT_FALSE(editing.insertPackets(5, more));
    EXPECT_FALSE(editing.insertPackets(1, {}));
    EXPECT_FALSE(editing.replaceAll(EditName::Version, {}));
    EXPECT_FALSE(editing.canUndo());
    EXPECT_EQ(wholeTextOf(playlist), whole);
    EXPECT_TRUE(editing.insertPackets(4, more)); // behind the last one
    EXPECT_EQ(playlist.packet(4).Title, u"New");
}

} // namespace orvanta::test
