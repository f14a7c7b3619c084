// Times that cannot be read, the end of a list of lessons, a stop at the beginning.
#include "tests/playback/brakes_fixture.h"

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

} // namespace orvanta::test
