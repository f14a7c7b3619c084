// What comes after a line has been played.
#include "playback/practice_rule.h"
#include "playback/practice_texts.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace orvanta::test {

TEST(NextAfterLine, GoesOnWhenNothingIsPractised)
{
    EXPECT_EQ(nextAfterLine({}, 1, 5), AfterLine::GoOn);
}

TEST(NextAfterLine, IsTheLineAgainUntilItsRoundsAreOver)
{
    const Practice thrice = {.times = 3};
    EXPECT_EQ(nextAfterLine(thrice, 1, 5), AfterLine::Again);
    EXPECT_EQ(nextAfterLine(thrice, 2, 5), AfterLine::Again);
    EXPECT_EQ(nextAfterLine(thrice, 3, 5), AfterLine::GoOn);
}

TEST(NextAfterLine, IsTheWaitBehindTheLastRound)
{
    const Practice practice = {.times = 2, .wait = 100};
    EXPECT_EQ(nextAfterLine(practice, 1, 5), AfterLine::Again);
    EXPECT_EQ(nextAfterLine(practice, 2, 5), AfterLine::Wait);
    EXPECT_EQ(nextAfterWait(practice), AfterLine::GoOn);
}

TEST(NextAfterLine, IsTheWaitBetweenEndlessRounds)
{
    const Practice practice = {.times = Practice::kEndless, .wait = Practice::kWaitForKey};
    EXPECT_EQ(nextAfterLine(practice, 1000, 5), AfterLine::Wait);
    EXPECT_EQ(nextAfterWait(practice), AfterLine::Again);
}

TEST(NextAfterLine, IsTheLineAgainForEverWhenItIsEndless)
{
    EXPECT_EQ(nextAfterLine({.times = Practice::kEndless}, 1000, 5), AfterLine::Again);
}

TEST(NextAfterLine, DoesNotWaitForALineWithoutALengthUnlessForAKeyOrSeconds)
{
    EXPECT_EQ(nextAfterLine({.wait = 100}, 1, 0), AfterLine::GoOn);
    EXPECT_EQ(nextAfterLine({.wait = Practice::kWaitForKey}, 1, 0), AfterLine::Wait);
    EXPECT_EQ(nextAfterLine({.wait = Practice::kWaitForSeconds}, 1, 0), AfterLine::Wait);
}

TEST(WaitAfterLine, IsAsLongAsTheLineLastedAtItsSpeed)
{
    EXPECT_DOUBLE_EQ(waitAfterLine({.wait = 100}, 4, 0.8).value(), 5);
    EXPECT_DOUBLE_EQ(waitAfterLine({.wait = 300}, 4, 1).value(), 12);
}

TEST(WaitAfterLine, IsWhatTheSettingsSayInSeconds)
{
    const Practice practice = {.wait = Practice::kWaitForSeconds, .seconds = 7};
    EXPECT_DOUBLE_EQ(waitAfterLine(practice, 4, 0.5).value(), 7);
}

TEST(WaitAfterLine, HasNoEndBeforeTheKey)
{
    EXPECT_FALSE(waitAfterLine({.wait = Practice::kWaitForKey}, 4, 1));
}

TEST(SpeedOfRound, GrowsFromTheBeginningToTheSpeedAndNoFurther)
{
    const Practice practice = {.speed = 80, .from = 50, .step = 20};
    EXPECT_DOUBLE_EQ(speedOfRound(practice, 1), 0.4);
    EXPECT_DOUBLE_EQ(speedOfRound(practice, 2), 0.56);
    EXPECT_DOUBLE_EQ(speedOfRound(practice, 4), 0.8);
    EXPECT_DOUBLE_EQ(speedOfRound(practice, 1000), 0.8);
}

TEST(SpeedOfRound, IsNeverBelowAQuarter)
{
    EXPECT_DOUBLE_EQ(speedOfRound({.speed = 30, .from = 20}, 1), 0.25);
}

TEST(SpeedOfRound, IsAsRecordedWhenNothingIsPractised)
{
    EXPECT_DOUBLE_EQ(speedOfRound({}, 1), 1);
}

TEST(PracticeSigns, SayTheRoundAndOfHowMany)
{
    EXPECT_EQ(roundText(2, 5, TextLanguage::English), QStringLiteral("Repeat 2 of 5"));
    EXPECT_EQ(roundText(2, 5, TextLanguage::Russian), QStringLiteral("Повтор 2 из 5"));
    EXPECT_EQ(roundText(12, Practice::kEndless, TextLanguage::English),
              QStringLiteral("Repeat 12"));
}

TEST(PracticeSigns, SayTheTempoAsAFactor)
{
    const QString mark = QLocale().decimalPoint();
    EXPECT_EQ(speedText(80), u'0' + mark + QStringLiteral("8\u00a0×"));
    EXPECT_EQ(speedText(95), u'0' + mark + QStringLiteral("95\u00a0×"));
    EXPECT_EQ(speedText(200), QStringLiteral("2\u00a0×"));
}

TEST(PracticeTexts, SayAWait)
{
    using namespace Qt::StringLiterals;
    const auto said = [](int wait) { return waitText(wait, 7, TextLanguage::English); };
    EXPECT_EQ(said(Practice::kNoWait), u"go on at once");
    EXPECT_EQ(said(Practice::kWaitForKey), u"until a key");
    EXPECT_EQ(said(Practice::kWaitForSeconds), u"7 s");
    EXPECT_EQ(said(100), u"as long as it lasted");
    EXPECT_EQ(said(150), QLocale().toString(1.5) + u" × its length"_s);
    EXPECT_EQ(roundText(2, 5, TextLanguage::English), u"Repeat 2 of 5");
    EXPECT_EQ(roundText(2, Practice::kEndless, TextLanguage::English), u"Repeat 2");
}

TEST(PracticeTexts, AreChipsOfWhatIsNotAsUsualAndOfWhatIsLeftWithoutIt)
{
    using namespace Qt::StringLiterals;
    EXPECT_TRUE(practiceChips({}, TextLanguage::English).empty());
    const Practice practice = {
        .speed = 80, .times = 3, .wait = 150, .from = 60, .mirror = true, .even = true};
    const std::vector<PracticeChip> chips = practiceChips(practice, TextLanguage::English);
    ASSERT_EQ(chips.size(), 6U);
    EXPECT_EQ(chips[0].text, speedText(80));
    EXPECT_EQ(chips[1].text, timesText(3, TextLanguage::English));
    EXPECT_EQ(chips[2].text, u"wait ×"_s + QLocale().toString(1.5));
    EXPECT_EQ(chips[3].text, u"from 60 %");
    EXPECT_EQ(chips[4].text, u"mirrored");
    EXPECT_EQ(chips[5].text, u"even loudness");
    Practice withoutTimes = practice;
    withoutTimes.times = 1;
    EXPECT_EQ(chips[1].without, withoutTimes);
    Practice withoutMirror = practice;
    withoutMirror.mirror = false;
    EXPECT_EQ(chips[4].without, withoutMirror);
}

TEST(PracticeTexts, AreChipsOfEachKindOfWait)
{
    using namespace Qt::StringLiterals;
    const auto said = [](int wait) {
        const auto chips = practiceChips({.wait = wait, .seconds = 9}, TextLanguage::English);
        return chips.empty() ? QString() : chips.front().text;
    };
    EXPECT_EQ(said(Practice::kWaitForKey), u"wait for a key");
    EXPECT_EQ(said(Practice::kWaitForSeconds), u"wait 9 s");
}

} // namespace orvanta::test
