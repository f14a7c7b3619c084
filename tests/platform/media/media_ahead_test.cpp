// The next clip, opened ahead: what is told is what is heard, and a change of mind is served as if
// nothing had been prepared.
#include "tests/support/recorded_player.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// The library has gone on to the next clip by then, and the device still plays this one, which is
// one second long.
constexpr double kBetween = 0.8;
constexpr int kTries = 5; // a busy machine may miss the moment

/// The first clip is one second long, the one that follows two.
struct Pair
{
    const char* first;
    const char* next;
};

class Ahead : public testing::TestWithParam<Pair>
{
protected:
    Ahead()
    {
        QObject::connect(&player.control, &MediaControl::position, &player.control, [this] {
            if (action && player.ends == 0 && player.control.CurrentPosition() >= kBetween) {
                std::exchange(action, {})();
                acted = true;
            }
        });
        QObject::connect(&player.control, &MediaControl::openComplete, &player.control,
                         [this] { player.control.Run(); });
    }

    [[nodiscard]] static QString first() { return QString::fromLatin1(GetParam().first); }
    [[nodiscard]] static QString next() { return QString::fromLatin1(GetParam().next); }

    /// Plays the clip with another one prepared and does something between the two.
    void between(const std::function<void()>& what)
    {
        for (int i = 0; i < kTries && !acted; ++i) {
            player.ends = 0;
            action = what;
            ASSERT_TRUE(player.open(first()));
            player.control.prepare(testClip(next()));
            ASSERT_TRUE(comesTrue([&] { return acted || player.ends > 0; }));
        }
        ASSERT_TRUE(acted);
        ASSERT_EQ(player.ends, 0);
    }

    bool reachesOrEnds(double seconds)
    {
        return comesTrue(
            [&] { return player.ends > 0 || player.control.CurrentPosition() >= seconds; });
    }

    /// Loads a clip as the one before comes to its end, in the next turn of the event loop.
    void followWith(const QString& name)
    {
        QObject::connect(
            &player.control, &MediaControl::positionChange, &player.control,
            [this, name] {
                if (player.ends == 1) {
                    player.control.Stop();
                    player.control.setFileName({});
                    player.control.setFileName(testClip(name));
                }
            },
            Qt::QueuedConnection);
    }

    RecordedPlayer player;
    std::function<void()> action;
    bool acted = false;
};

/// Whether this process has the file open.
bool isOpenHere(const QString& path)
{
    const QFileInfoList files =
        QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    return std::ranges::any_of(files,
                               [&](const QFileInfo& file) { return file.symLinkTarget() == path; });
}

std::string nameOfNext(const testing::TestParamInfo<Pair>& info)
{
    const std::string name = std::string(info.param.first) + "_" + info.param.next;
    return QString::fromStdString(name).replace(u'.', u'_').toStdString();
}

} // namespace

TEST_P(Ahead, TheEndIsToldWhenItIsHeardAndTheNextClipRunsAlready)
{
    followWith(next());
    double atEnd = 0;
    QObject::connect(&player.control, &MediaControl::position, &player.control,
                     [&] { atEnd = player.ends == 0 ? player.control.CurrentPosition() : atEnd; });
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(testClip(next()));
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_GT(atEnd, kBetween);
    EXPECT_EQ(player.jumps.back().from, player.jumps.back().duration);
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
    ASSERT_TRUE(comesTrue([&] { return player.opened.size() == 2; }));
    EXPECT_EQ(player.opened.back(), testClip(next()));
    EXPECT_NEAR(player.control.Duration(), 2.0, 0.05);
    ASSERT_TRUE(player.reaches(1));
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.ends, 2);
    EXPECT_EQ(player.failures, 0);
}

TEST_P(Ahead, AClipOfAThirdOfASecondFollowsAndEndsToo)
{
    followWith(u"short.wav"_s);
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(testClip(u"short.wav"_s));
    ASSERT_TRUE(comesTrue([&] { return player.ends == 2; }));
    EXPECT_LT(player.jumps.back().from, 0.5);
    EXPECT_EQ(player.opened.size(), 2);
}

TEST_P(Ahead, AClipWithAPictureFollowsWithIt)
{
    followWith(u"two.mp4"_s);
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(testClip(u"two.mp4"_s));
    ASSERT_TRUE(comesTrue([&] { return player.opened.size() == 2; }));
    EXPECT_FALSE(player.picture.isEmpty());
    ASSERT_TRUE(comesTrue([&] { return player.ends == 2; }));
}

TEST_P(Ahead, WithoutALoadTheClipStandsAtItsStartAndPlaysAgain)
{
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(testClip(next()));
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
    EXPECT_EQ(player.opened.size(), 1);
}

TEST_P(Ahead, ALoadOfSomethingElseAtTheEndIsServed)
{
    followWith(u"one.mp3"_s);
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(testClip(next()));
    ASSERT_TRUE(comesTrue([&] { return player.ends == 2; }));
    EXPECT_EQ(player.opened.back(), testClip(u"one.mp3"_s));
    EXPECT_LT(player.jumps.back().from, 1.5);
}

TEST_P(Ahead, APauseHoldsTheEndBack)
{
    between([&] { player.control.Pause(); });
    const double place = player.control.CurrentPosition();
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(comesTrue([&] { return time.elapsed() > 600; }));
    EXPECT_EQ(player.ends, 0);
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Paused);
    EXPECT_GE(player.control.CurrentPosition(), place);
    followWith(next());
    player.control.Run();
    ASSERT_TRUE(player.endsOnceMore());
    ASSERT_TRUE(comesTrue([&] { return player.control.FileName() == testClip(next()); }));
    ASSERT_TRUE(player.reaches(0.5));
}

TEST_P(Ahead, ASeekGoesThereInTheClipThatIsHeard)
{
    between([&] { player.control.setCurrentPosition(0.3); });
    EXPECT_EQ(player.control.CurrentPosition(), 0.3);
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Running);
    ASSERT_TRUE(player.reaches(0.5));
    EXPECT_LT(player.control.CurrentPosition(), 1.01);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
    EXPECT_EQ(player.control.FileName(), testClip(first()));
}

TEST_P(Ahead, AStopStandsAtTheStartAndIsNoEnd)
{
    between([&] { player.control.Stop(); });
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.CurrentPosition(), 0.0);
    player.control.Run();
    ASSERT_TRUE(player.reaches(0.2));
    EXPECT_EQ(player.ends, 0);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
}

TEST_P(Ahead, AnotherClipThatIsLoadedIsTheOneThatPlays)
{
    between([&] { player.control.setFileName(testClip(u"two.mp4"_s)); });
    ASSERT_TRUE(comesTrue([&] { return player.opened.back() == testClip(u"two.mp4"_s); }));
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.ends, 1);
    EXPECT_NEAR(player.jumps.back().from, 2.0, 0.1);
}

TEST_P(Ahead, ThePreparedClipLoadedBeforeTheEndBeginsAtItsStart)
{
    between([&] { player.control.setFileName(testClip(next())); });
    ASSERT_TRUE(comesTrue([&] { return player.opened.back() == testClip(next()); }));
    EXPECT_LT(player.control.CurrentPosition(), 0.5);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 2.0, 0.05);
}

TEST_P(Ahead, UnloadingLeavesNothing)
{
    between([&] { player.control.setFileName({}); });
    EXPECT_EQ(player.control.CurrentState(), MediaControl::NotLoaded);
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_EQ(player.ends, 1);
}

TEST_P(Ahead, WithdrawnTheClipPlaysToItsEnd)
{
    between([&] { player.control.prepare({}); });
    EXPECT_GE(player.control.CurrentPosition(), kBetween);
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped);
    EXPECT_EQ(player.control.FileName(), testClip(first()));
}

TEST_P(Ahead, WithdrawnAtAnyTimeTheClipEndsOnce)
{
    for (const double place : {0.0, 0.6, 0.65}) {
        player.ends = 0;
        ASSERT_TRUE(player.open(first()));
        player.control.prepare(testClip(next()));
        ASSERT_TRUE(reachesOrEnds(place));
        player.control.prepare({});
        ASSERT_TRUE(comesTrue([&] { return player.ends == 1; })) << place;
        EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05) << place;
        EXPECT_EQ(player.control.FileName(), testClip(first())) << place;
    }
}

TEST_P(Ahead, ASeekAtAnyTimeStaysInTheClip)
{
    for (const double place : {0.55, 0.65}) {
        player.ends = 0;
        ASSERT_TRUE(player.open(first()));
        player.control.prepare(testClip(next()));
        ASSERT_TRUE(reachesOrEnds(place));
        player.control.setCurrentPosition(0.4);
        ASSERT_TRUE(comesTrue([&] { return player.ends > 0; })) << place;
        EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05) << place;
        EXPECT_EQ(player.control.FileName(), testClip(first())) << place;
    }
}

TEST_P(Ahead, AFileThatIsNoClipChangesNothingAtTheEnd)
{
    for (const char* name : {"lines.srt", "gone.wav"}) {
        player.ends = 0;
        ASSERT_TRUE(player.open(first()));
        player.control.prepare(testClip(QString::fromLatin1(name)));
        ASSERT_TRUE(player.endsOnceMore()) << name;
        EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05) << name;
        EXPECT_EQ(player.control.CurrentState(), MediaControl::Stopped) << name;
        EXPECT_EQ(player.failures, 0) << name;
    }
}

TEST_P(Ahead, AClipThatCouldNotFollowIsOpenedAheadOnceItCan)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(next());
    ASSERT_TRUE(QFile::copy(testClip(u"lines.srt"_s), path));
    ASSERT_TRUE(player.open(first()));
    player.control.prepare(path);
    ASSERT_TRUE(player.endsOnceMore());
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::copy(testClip(next()), path));
    bool openedAhead = false;
    for (int i = 0; i < kTries && !openedAhead; ++i) {
        player.ends = 0;
        ASSERT_TRUE(player.open(first()));
        player.control.prepare(path);
        ASSERT_TRUE(comesTrue([&] { return player.ends > 0 || isOpenHere(path); }));
        openedAhead = player.ends == 0;
    }
    EXPECT_TRUE(openedAhead);
}

TEST_P(Ahead, OtherSubtitlesKeepTheClip)
{
    between([&] { player.control.addSubtitleFile(testClip(u"lines.srt"_s), {}); });
    ASSERT_TRUE(player.endsOnceMore());
    EXPECT_NEAR(player.jumps.back().from, 1.0, 0.05);
    EXPECT_EQ(player.control.FileName(), testClip(first()));
}

// The device takes the sound of the first pair's second clip as it is, and is opened anew for that
// of the second pair's.
INSTANTIATE_TEST_SUITE_P(Pairs, Ahead,
                         testing::Values(Pair{"one.wav", "two.wav"}, Pair{"one.wav", "tone.wav"},
                                         Pair{"red.mp4", "two.mp4"}),
                         nameOfNext);
