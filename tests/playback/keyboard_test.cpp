// The key tables and what the video window does with each key.
#include "core/numbers.h"
#include "playback/keyboard.h"
#include "playback/typed_key.h"
#include "tests/support/error_of.h"
#include "tests/support/plain_screen.h"
#include "tests/support/scripted_media_control.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class VideoKeys : public testing::Test
{
protected:
    void run()
    {
        control.duration = 600.0;
        control.setFileName(u"/clip.avi"_s);
        ASSERT_TRUE(QTest::qWaitFor([this] { return control.isReady(); }));
        control.Run();
        control.calls.clear();
    }

    void type(char16_t character)
    {
        if (const auto command = videoWindowLetter(character)) {
            EXPECT_TRUE(keys.press(*command));
        }
    }

    ScriptedMediaControl control;
    VideoMirror mirror;
    PlainScreen screen;
    VideoWindowKeys::Seek seek = [this](double seconds) { control.setCurrentPosition(seconds); };
    VideoWindowKeys keys{control, mirror, screen, [this](double seconds) { seek(seconds); }};
};

TEST(Keys, EveryLetterOfTheTableIsKnownToTheMainWindowInBothCases)
{
    int letters = 0;
    for (const CommandRow& row : commands()) {
        if (row.letter != 0) {
            ++letters;
            EXPECT_EQ(mainWindowLetter(row.letter), row.command);
            EXPECT_EQ(mainWindowLetter(QChar(row.letter).toUpper()), row.command);
        }
    }
    EXPECT_EQ(letters, 12);
}

TEST(Keys, UpperCaseLettersDoNothingInTheVideoWindow)
{
    for (const CommandRow& row : commands()) {
        const QChar upper = QChar(row.letter).toUpper();
        if (upper != QChar(row.letter)) {
            EXPECT_FALSE(videoWindowLetter(upper).has_value()) << qPrintable(QString(upper));
        }
    }
}

TEST(Keys, AlwaysOnTopIsIgnoredInTheVideoWindow)
{
    EXPECT_EQ(mainWindowLetter(u't'), Command::AlwaysOnTop);
    EXPECT_FALSE(videoWindowLetter(u't').has_value());
}

TEST(Keys, EveryOtherCharacterIsIgnored)
{
    for (const char16_t character : u"acdeghijoquvwxyz0 *,./") {
        EXPECT_FALSE(mainWindowLetter(character).has_value())
            << qPrintable(QString(QChar(character)));
        EXPECT_FALSE(videoWindowLetter(character).has_value())
            << qPrintable(QString(QChar(character)));
    }
}

/// Whether some physical key stands for this letter under a layout without Latin letters.
bool isOnAPhysicalKey(QChar letter)
{
    for (quint32 scanCode = 0; scanCode < 256; ++scanCode) {
        if (latinLetter(u'и', scanCode) == letter) {
            return true;
        }
    }
    return false;
}

TEST(Keys, EveryLetterHasAPhysicalKeyUnderOtherLayouts)
{
    QString wanted;
    for (const CommandRow& row : commands()) {
        wanted += row.letter != 0 ? QChar(row.letter) : QChar(u'+');
        for (const NamedKey& key : row.namedKeys()) {
            const bool isLetter = key.key >= Qt::Key_A && key.key <= Qt::Key_Z;
            wanted += isLetter ? QChar(key.key).toLower() : QChar(u'+');
        }
    }
    for (const QChar letter : wanted) {
        const bool typedAlikeEverywhere = letter == u'+' || letter == u'-';
        EXPECT_TRUE(typedAlikeEverywhere || isOnAPhysicalKey(letter))
            << qPrintable(QString(letter));
    }
}

TEST(Keys, CyrillicLettersActAsTheLatinOnesOnTheirKeys)
{
    EXPECT_EQ(latinLetter(u'и', 56), QChar(u'b'));
    EXPECT_EQ(latinLetter(u'И', 56), QChar(u'B'));
    EXPECT_EQ(latinLetter(u'к', 27), QChar(u'r'));
    EXPECT_EQ(latinLetter(u'е', 28), QChar(u't'));
    EXPECT_EQ(latinLetter(u'ы', 39), QChar(u's'));
}

TEST(Keys, ALatinLetterStaysWhateverKeyTypedIt)
{
    EXPECT_EQ(latinLetter(u'x', 56), QChar(u'x'));
    EXPECT_EQ(latinLetter(u'+', 56), QChar(u'+'));
}

TEST_F(VideoKeys, PlusAndMinusStepTheMirrorsVolumeByFiveWithinTheScale)
{
    mirror.VideoVolume = 93;
    type(u'+');
    EXPECT_EQ(mirror.VideoVolume, 98);
    EXPECT_TRUE(mirror.RequestPending);
    type(u'+');
    EXPECT_EQ(mirror.VideoVolume, 100);
    mirror.VideoVolume = 3;
    type(u'-');
    EXPECT_EQ(mirror.VideoVolume, 0);
}

TEST_F(VideoKeys, AVolumeStepOutsideSixteenBitsIsAnOverflow)
{
    mirror.VideoVolume = 32767;
    EXPECT_EQ(errorOf([&] { type(u'+'); }), 6);
}

TEST_F(VideoKeys, BAndMMoveThePlayerByAMinute)
{
    run();
    control.playTo(100.0);
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 160.0);
    type(u'b');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
    type(u'B');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(VideoKeys, ARefusedSeekLeavesThePositionAsItIs)
{
    run();
    control.playTo(100.0);
    control.failSeeks = true;
    type(u'm');
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(VideoKeys, KKeepsThePositionAsTheBookmark)
{
    run();
    control.playTo(12.5);
    type(u'k');
    EXPECT_EQ(mirror.VideoBookmark, u"12.5"_s);
}

TEST_F(VideoKeys, LGoesToTheBookmarkOfARunningClip)
{
    struct Row
    {
        MediaControl::State state;
        QString bookmark;
        double to;
    };
    run();
    for (const Row& row : {Row{MediaControl::Running, {}, 5}, Row{MediaControl::Paused, u"42"_s, 5},
                           Row{MediaControl::Running, u"42"_s, 42}}) {
        control.forceState(row.state);
        control.playTo(5.0);
        mirror.VideoBookmark = row.bookmark;
        type(u'l');
        EXPECT_DOUBLE_EQ(control.CurrentPosition(), row.to) << row.state << row.to;
        EXPECT_EQ(control.CurrentState(), row.state) << row.to;
    }
}

TEST_F(VideoKeys, PRAndSRaiseTheRequestThatServingHandsToThePlayer)
{
    run();
    type(u'p');
    EXPECT_TRUE(mirror.RequestPending);
    keys.serveRequest();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_FALSE(mirror.RequestPending);
    type(u'r');
    keys.serveRequest();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    type(u's');
    keys.serveRequest();
    EXPECT_EQ(control.CurrentState(), MediaControl::Stopped);
}

TEST_F(VideoKeys, AServedVolumeStepReachesThePlayerThroughTheSlidersFormula)
{
    run();
    mirror.VideoVolume = 55;
    type(u'-');
    keys.serveRequest();
    EXPECT_EQ(control.Volume(), -1000);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoKeys, AServedStateLeavesTheVolumeAsItIs)
{
    run();
    control.setVolume(-777);
    mirror.VideoVolume = 55;
    type(u'p');
    keys.serveRequest();
    EXPECT_EQ(control.Volume(), -777);
}

TEST_F(VideoKeys, AVolumeStepOfAStoppedClipKeepsThePositionThatWasSought)
{
    run();
    control.Stop();
    control.setCurrentPosition(30.0);
    mirror.VideoState = MediaControl::Stopped;
    type(u'+');
    keys.serveRequest();
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 30.0);
}

TEST_F(VideoKeys, SeeksGoWhereBrakesFollowThem)
{
    run();
    control.playTo(100.0);
    QList<double> sought;
    seek = [&](double seconds) { sought += seconds; };
    mirror.VideoBookmark = u"42"_s;
    type(u'm');
    type(u'b');
    type(u'l');
    keys.seekBy(-5.0);
    EXPECT_EQ(sought, (QList<double>{160.0, 40.0, 42.0, 42.0, 95.0}));
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 100.0);
}

TEST_F(VideoKeys, ThePlayKeyTurnsPauseIntoRunAndBack)
{
    run();
    keys.togglePlay();
    keys.serveRequest();
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    keys.togglePlay();
    keys.serveRequest();
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoKeys, StateKeysDoNothingWhileNothingIsLoaded)
{
    type(u'r');
    EXPECT_FALSE(mirror.RequestPending);
    EXPECT_EQ(mirror.VideoState, -1);
}

TEST_F(VideoKeys, FAndNSwitchFullScreenOfARunningClipAndKeepItRunning)
{
    run();
    type(u'f');
    EXPECT_TRUE(screen.on);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
    type(u'n');
    EXPECT_FALSE(screen.on);
    EXPECT_EQ(control.CurrentState(), MediaControl::Running);
}

TEST_F(VideoKeys, FDoesNothingWhileThePlayerDoesNotRun)
{
    run();
    control.Pause();
    type(u'f');
    EXPECT_FALSE(screen.on);
}

TEST_F(VideoKeys, LeavingFullScreenWorksInAnyState)
{
    run();
    type(u'f');
    control.Pause();
    keys.leaveFullScreen();
    EXPECT_FALSE(screen.on);
    keys.toggleFullScreen();
    EXPECT_TRUE(screen.on);
}

} // namespace
} // namespace orvanta::test
