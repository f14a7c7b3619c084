#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class Operations : public EngineTest
{
protected:
    PlaybackOperations& operations() { return engine->operations(); }

    void load()
    {
        operations().OpenMedia(file(u"a.avi"_s));
        waitUntilRunning();
        operations().PollPlayer();
        control.calls.clear();
    }

    PlaybackRecord& record() { return module.playback; }
};

TEST_F(Operations, AnEmptyVideoPositionBecomesZeroBeforeItIsCached)
{
    video.mirror().VideoPositionUpdated = true;
    operations().PollPlayer();
    EXPECT_EQ(operations().GetPlayerPosition(), u"0");
    EXPECT_EQ(video.mirror().VideoPosition, u"0");
    EXPECT_TRUE(record().PositionChanged);
}

TEST_F(Operations, APositionIsCachedOnlyOnceTheWindowHasTakenOne)
{
    video.mirror().VideoPosition = u"7"_s;
    operations().PollPlayer();
    EXPECT_EQ(operations().GetPlayerPosition(), QString());
}

TEST_F(Operations, AQuietPollTouchesNothing)
{
    load();
    record().StateChanged = false;
    operations().PollPlayer();
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_FALSE(record().StateChanged);
    EXPECT_FALSE(record().VolumeChanged);
    EXPECT_FALSE(record().BookmarkChanged);
    EXPECT_FALSE(record().ClipEnded);
}

TEST_F(Operations, AStateThatTheWindowSawIsReadFromTheControl)
{
    load();
    EXPECT_EQ(operations().GetPlayerState(), MediaControl::Running);
    EXPECT_TRUE(record().StateChanged);
    video.mirror().VideoState = MediaControl::Stopped; // asked for, not carried out
    operations().PollPlayer();
    EXPECT_EQ(operations().GetPlayerState(), MediaControl::Running);
    EXPECT_EQ(video.mirror().VideoState, MediaControl::Running);
}

TEST_F(Operations, ABookmarkSetInTheWindowIsReported)
{
    video.mirror().VideoBookmark = u"12.5"_s;
    operations().PollPlayer();
    EXPECT_TRUE(operations().TakeBookmarkChanged());
    EXPECT_FALSE(operations().TakeBookmarkChanged());
}

TEST_F(Operations, ABookmarkHandedInReachesTheWindowAndIsNoChange)
{
    operations().SetBookmark(u"12.5"_s);
    EXPECT_EQ(video.mirror().VideoBookmark, u"12.5");
    EXPECT_TRUE(record().BookmarkPending);
    operations().PollPlayer();
    EXPECT_FALSE(record().BookmarkPending);
    EXPECT_FALSE(operations().TakeBookmarkChanged());
    operations().SetBookmark(u"12.5"_s);
    video.mirror().VideoBookmark = u"3"_s; // overtaken by the one that is pending
    operations().PollPlayer();
    EXPECT_EQ(video.mirror().VideoBookmark, u"12.5");
}

TEST_F(Operations, AVolumeChangedInTheWindowIsReported)
{
    video.mirror().VideoVolume = 35;
    operations().PollPlayer();
    EXPECT_EQ(operations().GetPlayerVolume(), 35);
    EXPECT_TRUE(operations().TakeVolumeChanged());
    EXPECT_FALSE(operations().TakeVolumeChanged());
}

TEST_F(Operations, AnEndedClipIsStoppedUnloadedAndPutOutOfSight)
{
    load();
    video.mirror().VideoEnded = true;
    operations().PollPlayer();
    EXPECT_EQ(control.calls, (QStringList{u"Stop"_s, u"load "_s}));
    EXPECT_EQ(video.outOfSight, 1);
    EXPECT_FALSE(video.mirror().VideoEnded);
    EXPECT_TRUE(operations().TakeClipEnded());
    EXPECT_FALSE(operations().TakeClipEnded());
}

TEST_F(Operations, OnlyAJumpFromTheLastSecondToZeroEndsAClip)
{
    load();
    control.duration = 10.5;
    Q_EMIT control.positionChange(9.9, 0);
    Q_EMIT control.positionChange(10.2, 0.1);
    EXPECT_FALSE(video.mirror().VideoEnded);
    Q_EMIT control.positionChange(10.2, 0);
    EXPECT_TRUE(video.mirror().VideoEnded);
}

TEST_F(Operations, AStopByTheUserIsNoEnd)
{
    load();
    control.playTo(9.9);
    operations().StopIfRunning();
    operations().PollPlayer();
    EXPECT_FALSE(operations().TakeClipEnded());
}

TEST_F(Operations, SeekingARunningClipPausesItAndWritesThePositionTwice)
{
    load();
    operations().SetPlayerPosition(u"4.5"_s);
    EXPECT_EQ(control.calls, (QStringList{u"Pause"_s, u"seek 4.5"_s, u"Run"_s, u"seek 4.5"_s}));
    EXPECT_EQ(operations().GetPlayerPosition(), u"4.5");
}

TEST_F(Operations, SeekingAStandingClipWritesThePositionOnceAndThePollKeepsIt)
{
    load();
    operations().PauseIfRunning();
    for (const bool reported : {true, false}) {
        control.playTo(8);
        operations().PollPlayer();
        control.calls.clear();
        const bool before = control.blockSignals(!reported);
        operations().SetPlayerPosition(u"2,5"_s);
        control.blockSignals(before);
        EXPECT_EQ(control.calls, QStringList(u"seek 2.5"_s)) << reported;
        operations().PollPlayer();
        EXPECT_EQ(operations().GetPlayerPosition(), u"2.5") << reported;
    }
}

TEST_F(Operations, ARefusedSeekLeavesThePosition)
{
    load();
    control.playTo(8);
    control.failSeeks = true;
    operations().SetPlayerPosition(u"2"_s);
    operations().PollPlayer();
    EXPECT_EQ(operations().GetPlayerPosition(), u"8");
}

TEST_F(Operations, APositionThatIsNoNumberRaisesTypeMismatchAndSeeksNowhere)
{
    load();
    EXPECT_THROW(operations().SetPlayerPosition(u"soon"_s), RuntimeError);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(Operations, RunPauseAndStopActByTheStateOfTheControl)
{
    struct Row
    {
        MediaControl::State state;
        QStringList run, pause, stop;
    };
    load();
    const auto callsOf = [this](const Row& row, void (PlaybackOperations::*operation)()) {
        control.forceState(row.state);
        control.calls.clear();
        (operations().*operation)();
        return QStringList(control.calls);
    };
    for (const Row& row :
         {Row{MediaControl::NotLoaded, {}, {}, {}}, Row{MediaControl::Stopped, {u"Run"_s}, {}, {}},
          Row{MediaControl::Paused, {u"Run"_s}, {}, {}},
          Row{MediaControl::Running, {}, {u"Pause"_s}, {u"Stop"_s}}}) {
        EXPECT_EQ(callsOf(row, &PlaybackOperations::PlayerRun), row.run) << row.state;
        EXPECT_EQ(callsOf(row, &PlaybackOperations::PauseIfRunning), row.pause) << row.state;
        EXPECT_EQ(callsOf(row, &PlaybackOperations::StopIfRunning), row.stop) << row.state;
    }
}

TEST_F(Operations, TheDurationIsReadFromTheControlAndKept)
{
    control.duration = 12.25;
    load();
    EXPECT_EQ(operations().GetPlayerDuration(), u"12.25");
    EXPECT_EQ(record().CachedDuration, u"12.25");
}

TEST_F(Operations, OpeningPreparesTheWindowAndForgetsAnEndThatWasNotServed)
{
    video.mirror().VideoEnded = true;
    record().ClipEnded = true;
    load();
    EXPECT_EQ(video.prepared, 1);
    EXPECT_FALSE(video.mirror().VideoEnded);
    EXPECT_FALSE(record().ClipEnded);
}

TEST_F(Operations, ShowingTheVideoWindowIsNoted)
{
    operations().ShowVideoWindow(true);
    EXPECT_TRUE(video.windowShown);
    EXPECT_TRUE(record().VideoWindowShown);
    operations().ShowVideoWindow(false);
    EXPECT_FALSE(video.windowShown);
    EXPECT_FALSE(record().VideoWindowShown);
}

} // namespace orvanta::test
