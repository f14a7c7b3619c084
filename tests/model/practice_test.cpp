// How practice is stored, and the steps of its speed.
#include "model/settings.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class StoredPractice : public testing::Test
{
protected:
    void store(const char16_t* key, const QString& value)
    {
        WriteIni(u"practice"_s, QString::fromUtf16(key), value, home.ini());
    }

    SettingsFolder home;
    Settings settings{home.ini()};
};

TEST_F(StoredPractice, IsAsUsualWhenThereIsNone)
{
    EXPECT_EQ(settings.practice(), Practice());
}

TEST_F(StoredPractice, IsReadAsItWasWritten)
{
    const Practice practice = {.speed = 80,
                               .times = Practice::kEndless,
                               .wait = Practice::kWaitForSeconds,
                               .seconds = 9,
                               .from = 60,
                               .step = 10,
                               .mirror = true,
                               .even = true};
    settings.setPractice(practice);
    EXPECT_EQ(settings.practice(), practice);
    settings.setPractice({});
    EXPECT_EQ(settings.practice(), Practice());
}

TEST_F(StoredPractice, WritesNoLineForWhatWasNeverChanged)
{
    settings.setPractice({.speed = 90});
    EXPECT_EQ(ReadIni(u"practice"_s, u"speed"_s, home.ini()), u"90");
    EXPECT_EQ(ReadIni(u"practice"_s, u"repeat"_s, home.ini()), QString());
}

TEST_F(StoredPractice, CountsSpoiltTextsAsAbsentAndFarNumbersAsTheNearestOnes)
{
    store(u"speed", u"slow"_s);
    store(u"repeat", u"99"_s);
    store(u"wait", u"10"_s);
    store(u"from", u"-7"_s);
    store(u"step", u"99999999"_s);
    store(u"mirror", u"yes"_s);
    const Practice practice = settings.practice();
    EXPECT_EQ(practice.speed, 100);
    EXPECT_EQ(practice.times, Practice::kMostTimes);
    EXPECT_EQ(practice.wait, Practice::kShortestWait);
    EXPECT_EQ(practice.from, Practice::kSlowestBeginning);
    EXPECT_EQ(practice.step, 0);
    EXPECT_FALSE(practice.mirror);
}

TEST(SpeedSteps, AreFineUpToTheNormalSpeedAndCoarseAbove)
{
    EXPECT_EQ(slowerThan(100), 95);
    EXPECT_EQ(fasterThan(95), 100);
    EXPECT_EQ(fasterThan(100), 110);
    EXPECT_EQ(slowerThan(110), 100);
}

TEST(SpeedSteps, GoFromAnySpeedToTheNextStepAndStayInTheirRange)
{
    EXPECT_EQ(slowerThan(93), 90);
    EXPECT_EQ(fasterThan(93), 95);
    EXPECT_EQ(slowerThan(104), 100);
    EXPECT_EQ(fasterThan(104), 110);
    EXPECT_EQ(slowerThan(25), 25);
    EXPECT_EQ(fasterThan(200), 200);
}

} // namespace orvanta::test
