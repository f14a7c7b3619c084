// Which file the player is told to have ready: the one that the end of the clip would start.
#include "tests/playback/brakes_fixture.h"

namespace orvanta::test {

class NextClip : public Brakes
{
protected:
    /// What is prepared when a tick finds the clip at this place; each is ten seconds long.
    QString preparedAt(double seconds)
    {
        control.prepared = u"nothing was said"_s;
        control.playTo(seconds);
        engine->tick();
        return control.prepared;
    }
};

TEST_F(NextClip, IsPreparedInTheLastSecondsOfTheOneBefore)
{
    option("agnc");
    control.duration = 10;
    playClips({u"first"_s, u"second"_s});
    EXPECT_EQ(preparedAt(1), QString());
    EXPECT_EQ(preparedAt(6), path(u"second.avi"_s));
    EXPECT_EQ(preparedAt(2), QString()); // sought back
    EXPECT_EQ(preparedAt(9), path(u"second.avi"_s));
    endClip();
    EXPECT_EQ(place(), at(1, 2));
    EXPECT_EQ(control.FileName(), path(u"second.avi"_s));
}

TEST_F(NextClip, IsTheOneThatTheOptionsAndMarksLeadTo)
{
    option("agnc");
    control.duration = 10;
    playClips({u"first"_s, u"second"_s, u"third"_s});
    EXPECT_EQ(preparedAt(8), path(u"second.avi"_s));
    view.checked.at(3) = false;
    EXPECT_EQ(preparedAt(8.1), path(u"third.avi"_s));
    option("agnc", u"0"_s);
    EXPECT_EQ(preparedAt(8.2), QString());
}

TEST_F(NextClip, IsTheFirstOneAgainWhereTheListIsReplayed)
{
    turnOn({"agnc", "agnp", "ar"});
    control.duration = 10;
    play(addClips({u"first"_s, u"second"_s}), 2);
    EXPECT_EQ(preparedAt(8), path(u"first.avi"_s));
}

TEST_F(NextClip, IsNoneBehindTheLast)
{
    turnOn({"agnc", "agnp"});
    control.duration = 10;
    playClips({u"only"_s});
    EXPECT_EQ(preparedAt(8), QString());
}

TEST_F(NextClip, IsNoneWhereItsFileIsMissing)
{
    turnOn({"agnc", "agnp"});
    control.duration = 10;
    addClips({u"first"_s});
    addMissingClips({u"second"_s});
    play(1, 1);
    EXPECT_EQ(preparedAt(8), QString());
}

TEST_F(NextClip, IsNoneWhereItGoesToABrakeOrComesFromOne)
{
    turnOn({"agnc", "agnp", "ar"});
    control.duration = 10;
    addClips({u"first"_s});
    addBrakes({u"1"_s, u"30"_s});
    addClips({u"last"_s});
    play(1, 1);
    EXPECT_EQ(preparedAt(8), QString());
    play(2, 1);
    EXPECT_EQ(preparedAt(8), QString());
}

TEST_F(NextClip, IsNoneWhereTheLineIsPlayedAgainOrWaitedFor)
{
    option("agnc");
    WriteIni(u"practice"_s, u"repeat"_s, u"2"_s, module.IniPath);
    control.duration = 10;
    playClips({u"first"_s, u"second"_s});
    EXPECT_EQ(preparedAt(8), QString());
    endClip();
    ASSERT_EQ(place(), at(1, 1)); // its second time
    waitUntilRunning();
    EXPECT_EQ(preparedAt(8), path(u"second.avi"_s));
    WriteIni(u"practice"_s, u"wait"_s, u"-1"_s, module.IniPath);
    EXPECT_EQ(preparedAt(8.1), QString());
}

} // namespace orvanta::test
