// What plays while what is open is edited.
#include "model/editing/lesson_editing.h"
#include "playback/lesson_controls.h"
#include "playback/practice_controls.h"
#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class EditedWhilePlaying : public EngineTest
{
protected:
    EditedWhilePlaying()
    {
        QObject::connect(&editing, &LessonEditing::edited, [this](const EditStep& step) {
            engine->lesson().edited(step);
            view.RebuildTree();
        });
    }

    LessonEditing editing{module.playlist};
};

TEST_F(EditedWhilePlaying, TheLineGoesAlongWithItsClip)
{
    playClips({u"one"_s, u"two"_s, u"three"_s});
    control.calls.clear();
    editing.moveTo({{1, 1}}, {1, 4});
    EXPECT_EQ(place(), at(1, 3));
    editing.insertClips({1, 1}, {file(u"new.avi"_s)}, {u"new"_s});
    EXPECT_EQ(place(), at(1, 4));
    editing.undo();
    editing.undo();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_TRUE(control.calls.isEmpty());
}

TEST_F(EditedWhilePlaying, ARemovedClipPlaysOnAndTheOneInItsPlaceIsNext)
{
    turnOn({"agnc"});
    playClips({u"one"_s, u"two"_s, u"three"_s});
    editing.remove({{1, 1}});
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(engine->lesson().line(), LessonLine()); // it has none any more
    control.reachEnd();
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(EditedWhilePlaying, BehindARemovedLastClipComesTheNextPacket)
{
    turnOn({"agnc", "agnp"});
    const Int16 first = addClips({u"one"_s, u"two"_s});
    addClips({u"three"_s});
    play(first, 2);
    editing.remove({{1, 2}});
    control.reachEnd();
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(control.FileName(), path(u"three.avi"_s));
}

TEST_F(EditedWhilePlaying, BehindARemovedPacketComesTheOneInItsPlace)
{
    turnOn({"agnc", "agnp"});
    const Int16 first = addClips({u"one"_s});
    addClips({u"two"_s});
    play(first, 1);
    editing.remove({{1, 0}});
    control.reachEnd();
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(EditedWhilePlaying, ARemovedBrakesSpanBelongsToTheOneBefore)
{
    playBrakes({u"0"_s, u"2"_s, u"8"_s});
    control.playTo(3);
    engine->tick();
    ASSERT_EQ(place(), at(1, 2));
    editing.remove({{1, 2}});
    EXPECT_EQ(place(), at(1, 1));
    editing.undo();
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(EditedWhilePlaying, ABrakeSetBehindThePlaceIsReachedInItsTime)
{
    playBrakes({u"0"_s, u"8"_s});
    ASSERT_TRUE(editing.mark({{1, 1}, 10, {}}, {4, u"four"_s}));
    EXPECT_EQ(place(), at(1, 1));
    control.playTo(4.1);
    engine->tick();
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(view.clipText, u"four");
}

TEST_F(EditedWhilePlaying, TheOldClipsNameStaysAwayWhileItPlaysOnUnderANewList)
{
    playClips({u"old"_s});
    emptyPlaylist();
    addClips({u"one"_s, u"two"_s});
    engine->playlistReplaced();
    editing.begin();
    editing.setText({1, 1}, u"eins"_s);
    EXPECT_EQ(engine->lesson().line(), LessonLine());
    EXPECT_NE(view.clipText, u"eins");
    engine->lineStep(1);
    waitUntilRunning();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(EditedWhilePlaying, AWaitEndsWithTheChangeAndNothingIsLost)
{
    Practice practice;
    practice.wait = Practice::kWaitForKey;
    turnOn({"agnc"});
    engine->practice().set(practice);
    playClips({u"one"_s, u"two"_s});
    control.reachEnd();
    engine->tick();
    ASSERT_TRUE(engine->practice().isWaiting());
    editing.setText({1, 2}, u"zwei"_s);
    EXPECT_FALSE(engine->practice().isWaiting());
    EXPECT_EQ(place(), at(1, 1));
    engine->lineStep(1);
    waitUntilRunning();
    EXPECT_EQ(control.FileName(), path(u"two.avi"_s));
}

} // namespace orvanta::test
