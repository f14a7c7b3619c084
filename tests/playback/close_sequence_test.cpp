#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class Closing : public EngineTest
{};

TEST_F(Closing, StopsMutedDeletesTheScratchCopyAndUnloads)
{
    playClips({u"one"_s});
    engine->tick();
    file(u"temp.vxc"_s);
    QStringList callsBeforeUnload;
    view.onUnload = [&] { callsBeforeUnload = control.calls; };
    control.calls.clear();
    engine->pressClose();
    EXPECT_EQ(callsBeforeUnload, (QStringList{u"volume -10000"_s, u"Stop"_s}));
    EXPECT_FALSE(QFile::exists(path(u"temp.vxc"_s)));
    EXPECT_EQ(view.unloaded, 1);
    EXPECT_TRUE(engine->isClosing());
}

TEST_F(Closing, LeavesTheStoredVolumeAlone)
{
    WriteIni(u"save"_s, u"volume"_s, u"-1000"_s, module.IniPath);
    engine->pressClose();
    EXPECT_EQ(home.value("save", "volume"), u"-1000");
}

TEST_F(Closing, APausedClipIsPlayedAndStopped)
{
    playClips({u"one"_s});
    engine->tick();
    engine->pressPause();
    engine->tick();
    engine->pressClose();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Closing, InABrakePacketComesToAnEnd)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12"_s});
    engine->tick();
    engine->pressStop(); // paused at the brake
    engine->tick();
    control.calls.clear();
    engine->pressClose();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(countOf(u"Run"_s), 1);
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Closing, APlayerThatCannotBeStoppedIsNotWaitedForForEver)
{
    playClips({u"one"_s});
    QObject::connect(&control, &MediaControl::stateChange, &control, [this](auto, auto state) {
        if (state == MediaControl::Stopped) {
            control.Run();
        }
    });
    engine->closeProgram();
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Closing, CancelsTheWindowThatWaitsForAnAnswerBeforeItUnloads)
{
    view.modalWindowOpen = true;
    bool openAtUnload = true;
    view.onUnload = [&] { openAtUnload = view.modalWindowOpen; };
    engine->closeProgram();
    EXPECT_EQ(view.unloaded, 1);
    EXPECT_FALSE(openAtUnload);
}

TEST_F(Closing, HappensOnce)
{
    engine->pressClose();
    engine->pressClose();
    engine->closeProgram();
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Closing, NothingBeginsAfterwards)
{
    addClips({u"one"_s});
    engine->closeProgram();
    engine->ListClick(1, 1);
    engine->tick();
    EXPECT_EQ(loads(), 0);
    EXPECT_EQ(video.showCalls, 0);
}

TEST_F(Closing, AskedForInsideATickWaitsUntilTheTickIsOver)
{
    control.duration = 40;
    playBrakes({u"5"_s, u"12"_s});
    control.playTo(12.5);
    int unloadedInside = -1;
    QTimer::singleShot(0, &control, [&] {
        engine->closeProgram();
        unloadedInside = view.unloaded;
    });
    engine->tick();
    EXPECT_EQ(unloadedInside, 0);
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(Closing, DoesNotServeTheQueueAnyMore)
{
    option("si");
    module.tray.TrayCloseRequest = true;
    WriteIni(u"ftl"_s, u"num"_s, u"1"_s, module.IniPath);
    engine->tick();
    EXPECT_EQ(home.value("ftl", "num"), u"1");
    EXPECT_EQ(view.unloaded, 1);
}

class KeptProgram : public EngineTest
{
protected:
    KeptProgram()
    {
        option("nc");
        addClips({u"one"_s, u"two"_s});
        play(1, 2);
        engine->tick();
        module.playlist.OpenedFromExplorer = true;
    }
};

TEST_F(KeptProgram, IsHiddenAndNotEnded)
{
    engine->pressClose();
    EXPECT_EQ(view.hidden, 1);
    EXPECT_EQ(view.unloaded, 0);
    EXPECT_FALSE(engine->isClosing());
}

TEST_F(KeptProgram, ShowsNoClip)
{
    view.clipText = u"one"_s;
    engine->pressClose();
    EXPECT_EQ(view.clipText, QString());
}

TEST_F(KeptProgram, ShowsThePlaceholderTimes)
{
    engine->pressClose();
    engine->tick();
    EXPECT_EQ(view.currentTime, u"000000,000");
    EXPECT_EQ(view.clipLength, u"000000,00");
    EXPECT_EQ(view.slider, 0);
}

TEST_F(KeptProgram, HasAnEmptyPlaylistAndNothingLoaded)
{
    engine->pressClose();
    EXPECT_EQ(module.playlist.PlaylistCount, 0);
    EXPECT_EQ(place(), at(0, 0));
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
    EXPECT_TRUE(view.lines.empty());
    EXPECT_EQ(control.FileName(), QString());
    EXPECT_EQ(video.outOfSight, 1);
    EXPECT_TRUE(view.looks.playEnabled);
}

TEST_F(KeptProgram, PlaysAgainWhenFilesAreHandedOver)
{
    option("as");
    engine->pressClose();
    queue({file(u"queued.avi"_s)});
    engine->tick();
    waitUntilRunning();
    EXPECT_EQ(view.shown, 1);
    EXPECT_EQ(control.FileName(), path(u"queued.avi"_s));
}

TEST_F(KeptProgram, EndsWhenTheSessionEnds)
{
    engine->closeProgram();
    EXPECT_EQ(view.unloaded, 1);
}

} // namespace orvanta::test
