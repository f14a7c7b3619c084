// Times that cannot be read, the end of a list of lessons, a stop at the beginning.
#include "tests/playback/brakes_fixture.h"

#include <QElapsedTimer>

namespace orvanta::test {

/// A clip was dropped into the lesson, or a time of its file is spoiled.
class UnreadableTimes : public Brakes
{};

TEST_F(UnreadableTimes, BehindTheLastBrakeDoNotTakeItsPlaceAsEndMark)
{
    playBrakes({u"5"_s, u"12"_s, u""_s}, 2);
    addClips({u"next"_s});
    tickAt(12.3);
    EXPECT_EQ(place(), at(2, 1));
}

TEST_F(UnreadableTimes, AreGoneAroundByPlaying)
{
    playBrakes({u"5"_s, u"soon"_s, u"20"_s});
    tickAt(20.1);
    EXPECT_EQ(clip(), 3);
}

TEST_F(UnreadableTimes, LeaveTheSliderTheSpanFromOneReadableTimeToTheNext)
{
    playBrakes({u"5"_s, u"soon"_s, u"25"_s});
    tickAt(15);
    EXPECT_EQ(view.slider, 50);
    engine->ListClick(1, 2); // plays on from where it is
    tickAt(10);
    EXPECT_EQ(view.slider, 25);
}

TEST_F(UnreadableTimes, OfAllBrakesLetTheClipRunToItsEnd)
{
    playBrakes({u"soon"_s, u"later"_s});
    addClips({u"next"_s});
    tickAt(30);
    EXPECT_EQ(place(), at(1, 1));
    endClip();
    EXPECT_EQ(place(), at(1, 1));
}

TEST_F(UnreadableTimes, BehindAnEndMarkInTheLastSecondLetTheEndPassIt)
{
    playBrakes({u"5"_s, u"39.5"_s, u""_s}, 2);
    addClips({u"next"_s});
    endClip();
    EXPECT_EQ(packet(), 2);
}

class EndOfAList : public Brakes
{
protected:
    void passEndMark()
    {
        addClips({u"first"_s});
        play(addBrakes({u"5"_s, u"12"_s}), 2);
        module.playlist.OpenedFromExplorer = true;
        tickAt(12.3);
    }
};

TEST_F(EndOfAList, OfBrakesBeginsItAgainWhenTheOptionSaysSo)
{
    option("ar");
    passEndMark();
    EXPECT_EQ(place(), at(1, 1));
    EXPECT_EQ(runningFile(), path(u"first.avi"_s));
    EXPECT_EQ(view.unloaded, 0);
}

TEST_F(EndOfAList, OfBrakesClosesTheProgramWhenTheOptionSaysSo)
{
    option("acp");
    passEndMark();
    EXPECT_EQ(view.unloaded, 1);
}

TEST_F(EndOfAList, OfBrakesLeavesNoLineCurrent)
{
    passEndMark();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_EQ(view.unloaded, 0);
}

TEST_F(EndOfAList, OfOneLessonBeginsItAgainAtItsFirstBrake)
{
    option("ar");
    playLesson(3);
    tickAt(20.3);
    waitUntilRunning();
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(control.CurrentPosition(), 5);
}

/// Files from outside, with the option that closes the program after them.
class UnplayableFromOutside : public EngineTest
{
protected:
    void SetUp() override
    {
        turnOn({"agnc", "agnp", "acp"});
        module.Language = 1;
        addMissingClips({u"broken"_s});
        module.playlist.OpenedFromExplorer = true;
    }

    /// As opening does it; the first tick after it comes to the end of the list.
    void openAndFail()
    {
        option("as");
        emptyPlaylist(); // what is open would stay
        queue({path(u"broken.gone"_s)});
        engine->tick();
        engine->tick();
    }

    [[nodiscard]] bool closes()
    {
        return QTest::qWaitFor([&] {
            engine->tick();
            return view.unloaded == 1;
        });
    }
};

TEST_F(UnplayableFromOutside, IsNamedBeforeTheProgramCloses)
{
    openAndFail();
    EXPECT_EQ(view.unloaded, 0);
    EXPECT_EQ(view.clipText, u"Cannot play: broken.gone");
    EXPECT_EQ(view.listIndex, -1);
    EXPECT_TRUE(closes());
    EXPECT_EQ(view.clipText, u"Cannot play: broken.gone");
}

TEST_F(UnplayableFromOutside, IsNamedForThreeSeconds)
{
    QElapsedTimer shown;
    shown.start();
    openAndFail();
    ASSERT_TRUE(closes());
    EXPECT_GE(shown.elapsed(), 3000);
}

TEST_F(UnplayableFromOutside, IsNamedInRussianToo)
{
    module.Language = 2;
    openAndFail();
    EXPECT_EQ(view.clipText, u"Не удаётся воспроизвести: broken.gone");
}

TEST_F(UnplayableFromOutside, IsNamedByTheFileOfItsBrakes)
{
    PlaylistEntry packet;
    packet.HasBrakes = true;
    packet.MediaFile = u"C:\\lessons\\lesson.gone"_s;
    packet.Clips.push_back({.Time = u"5"_s, .Text = u"brake"_s, .Path = {}});
    emptyPlaylist();
    addPacket(packet);
    engine->startCurrent();
    engine->tick();
    EXPECT_EQ(view.clipText, u"Cannot play: lesson.gone");
}

TEST_F(UnplayableFromOutside, IsNotNamedWhereTheProgramStays)
{
    option("acp", u"0"_s);
    openAndFail();
    EXPECT_EQ(view.clipText, u"broken");
}

/// The closing is due; what keeps the program keeps it for good.
class UnplayableFromOutsideThenAsked : public UnplayableFromOutside
{
protected:
    void SetUp() override
    {
        UnplayableFromOutside::SetUp();
        openAndFail();
        ASSERT_EQ(view.clipText, u"Cannot play: broken.gone");
    }

    /// The time is over when a second program, in which the same happened later, has closed.
    void expectItStays()
    {
        Module1 otherModule = module;
        otherModule.playlist = {};
        ScriptedMediaControl otherControl;
        PlainVideoWindow otherVideo{otherControl};
        PlainPlaybackView otherView{otherModule};
        PlaybackEngine other(otherModule, otherControl, otherVideo);
        other.attachView(otherView);
        PlaylistEntry gone;
        gone.Clips.push_back({.Time = {}, .Text = u"gone"_s, .Path = path(u"gone"_s)});
        gone.ClipCount = 1;
        otherModule.playlist.Playlist.push_back(gone);
        otherModule.playlist.PlaylistCount += 1;
        otherModule.playlist.OpenedFromExplorer = true;
        otherView.RebuildTree();
        other.startCurrent();
        ASSERT_TRUE(QTest::qWaitFor([&] {
            other.tick();
            return otherView.unloaded == 1;
        }));
        engine->tick();
        EXPECT_EQ(view.unloaded, 0);
    }
};

TEST_F(UnplayableFromOutsideThenAsked, StaysForPlay)
{
    file(u"broken.gone"_s); // it has come back
    engine->play();
    expectItStays();
    EXPECT_EQ(runningFile(), path(u"broken.gone"_s));
}

TEST_F(UnplayableFromOutsideThenAsked, StaysForAnOpening)
{
    option("as", u"0"_s);
    emptyPlaylist();
    addClips({u"good"_s});
    engine->playlistReplaced();
    expectItStays();
}

TEST_F(UnplayableFromOutsideThenAsked, StaysForADrop)
{
    option("as", u"0"_s);
    addClips({u"good"_s});
    engine->playlistExtended({});
    expectItStays();
}

TEST_F(UnplayableFromOutsideThenAsked, StaysForAnotherFileFromOutside)
{
    queue({file(u"good.avi"_s)});
    engine->tick();
    expectItStays();
    EXPECT_EQ(runningFile(), path(u"good.avi"_s));
}

class StopAtTheBeginning : public Brakes
{
protected:
    /// As the keys of both windows do.
    void stopIn(const QStringList& times)
    {
        playBrakes(times, 2);
        tickAt(14);
        engine->operations().StopIfRunning();
        engine->tick();
    }
};

TEST_F(StopAtTheBeginning, MakesTheBrakeThereCurrent)
{
    stopIn({u"0"_s, u"12"_s, u"20"_s});
    EXPECT_EQ(clip(), 1);
    EXPECT_EQ(view.clipText, u"brake 1");
    EXPECT_EQ(view.listIndex, 2);
    EXPECT_EQ(view.slider, 0);
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
}

TEST_F(StopAtTheBeginning, MakesNoneCurrentWhereTheFirstBrakeLiesLater)
{
    stopIn({u"5"_s, u"12"_s, u"20"_s});
    EXPECT_EQ(clip(), 0);
    EXPECT_EQ(view.clipText, QString());
    EXPECT_EQ(view.listIndex, 1);
}

TEST_F(StopAtTheBeginning, AfterTheEndMarkLeavesNoneCurrent)
{
    playBrakes({u"0"_s, u"12"_s}, 2);
    tickAt(12.3);
    engine->tick();
    EXPECT_EQ(clip(), 0);
    EXPECT_EQ(view.listIndex, -1);
}

TEST_F(Brakes, BehindTheClipsEndAreNotBegunByTheNextClipAskedFor)
{
    playBrakes({u"5"_s, u"300"_s}, 1);
    addClips({u"next"_s});
    endClip();
    EXPECT_EQ(place(), at(1, 1));
    engine->nextChecked();
    EXPECT_EQ(place(), at(2, 1));
}

} // namespace orvanta::test
