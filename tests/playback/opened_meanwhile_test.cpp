// What was opened with "as" off while a clip played on: nothing of it is on yet.
#include "playback/lesson_controls.h"
#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class OpenedMeanwhile : public EngineTest
{
protected:
    OpenedMeanwhile()
    {
        QObject::connect(engine.get(), &PlaybackEngine::cursorChanged, engine.get(),
                         [this] { told.append(engine->lesson().line().text); });
    }

    /// As the main window opens a packet of brakes.
    void openBrakes()
    {
        emptyPlaylist();
        addBrakes({u"1"_s, u"5"_s, u"9"_s});
        told.clear();
        engine->playlistReplaced();
    }

    [[nodiscard]] LessonLine line() const { return engine->lesson().line(); }

    QStringList told; // what each change of the cursor brought, for the text over the picture
};

TEST_F(OpenedMeanwhile, NoLineOfItIsToldOfWhileTheOldClipPlaysOn)
{
    playClips({u"old"_s});
    ASSERT_EQ(line().text, u"old");
    openBrakes();
    ASSERT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(told, QStringList{QString()});
    EXPECT_EQ(line(), LessonLine());
    EXPECT_TRUE(engine->lesson().marks().empty()); // its times mean nothing in the old clip
    engine->tick();
    EXPECT_EQ(line(), LessonLine());
}

TEST_F(OpenedMeanwhile, TheBrakesOfTheVeryClipThatPlaysGoOnWhereItIs)
{
    openBrakes();
    engine->ListClick(1, 1);
    waitUntilRunning();
    control.playTo(6);
    engine->tick();
    ASSERT_EQ(place(), at(1, 2));
    control.playTo(7);
    openBrakes();
    control.calls.clear();
    engine->tick();
    engine->tick();
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_TRUE(control.calls.filter(u"seek"_s).isEmpty());
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 7);
    EXPECT_EQ(line().text, u"brake 2");
}

TEST_F(OpenedMeanwhile, ABookmarkIsThatOfTheClipThatPlaysOn)
{
    playClips({u"old"_s});
    control.playTo(6);
    openBrakes();
    engine->tick();
    engine->keepPosition();
    EXPECT_EQ(module.settings().position(u"old"_s), u"6");
    EXPECT_EQ(module.settings().position(u"brake 1"_s), QString());
    EXPECT_EQ(engine->playingText(), u"old");
}

TEST_F(OpenedMeanwhile, ItsFirstLineIsToldOfOnceItIsWhatPlays)
{
    playClips({u"old"_s});
    openBrakes();
    engine->lineStep(1);
    waitUntilRunning();
    EXPECT_EQ(line(), (LessonLine{.text = u"brake 1"_s, .number = 1, .count = 2}));
    EXPECT_EQ(engine->lesson().marks().size(), 3U);
}

TEST_F(OpenedMeanwhile, WithNothingInThePlayerItsFirstLineIsTheOneToCome)
{
    openBrakes();
    EXPECT_EQ(told, QStringList{u"brake 1"_s});
    EXPECT_EQ(line().number, 1);
}

TEST_F(OpenedMeanwhile, ALessonToGoOnWithIsNotOnEither)
{
    playClips({u"old"_s});
    emptyPlaylist();
    addClips({u"one"_s, u"two"_s});
    told.clear();
    engine->lesson().playlistContinued({.packet = 1, .clip = 2, .seconds = 3});
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(told, (QStringList{QString(), QString()}));
}

TEST_F(OpenedMeanwhile, WhatALaunchHandsOverIsNotOnWhileTheOldClipStands)
{
    playClips({u"old"_s});
    told.clear();
    queue({file(u"new.avi"_s)});
    engine->tick();
    ASSERT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(told, QStringList{QString()});
    EXPECT_EQ(line(), LessonLine());
}

} // namespace orvanta::test
