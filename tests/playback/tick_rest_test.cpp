// When the playback tick rests, and what brings it back.
#include "core/ini.h"
#include "playback/tick_rest.h"
#include "tests/support/settings_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <chrono>
#include <gtest/gtest.h>
#include <memory>

using namespace orvanta;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class TickRestTest : public testing::Test
{
protected:
    TickRestTest()
    {
        WriteIni(u"ftl"_s, u"num"_s, u"0"_s, home.ini());
        timer.setInterval(20ms);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
            ++ticks;
            rest->ticked(isQuiet);
        });
        restart(home.ini());
    }

    void restart(const QString& settingsFile)
    {
        timer.setInterval(20ms);
        rest = std::make_unique<TickRest>(timer, settingsFile, [this] { ++settled; });
        timer.start();
    }

    [[nodiscard]] bool rests() const { return timer.interval() == 200; }
    [[nodiscard]] bool comesToRest()
    {
        return QTest::qWaitFor([this] { return rests(); }, 20000);
    }
    [[nodiscard]] bool ticksOnceMore()
    {
        const int before = ticks;
        return QTest::qWaitFor([&] { return ticks > before; }, 20000);
    }

    SettingsFolder home;
    QTimer timer;
    std::unique_ptr<TickRest> rest;
    bool isQuiet = true;
    int ticks = 0;
    int settled = 0;
};

} // namespace

TEST_F(TickRestTest, ComesAfterTwoQuietTicks)
{
    ASSERT_TRUE(ticksOnceMore());
    EXPECT_FALSE(rests());
    EXPECT_TRUE(comesToRest());
}

TEST_F(TickRestTest, DoesNotComeWhileSomethingRuns)
{
    isQuiet = false;
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(ticksOnceMore());
        EXPECT_FALSE(rests());
    }
}

TEST_F(TickRestTest, IsSettledOnceWhenWhatRanHasStopped)
{
    ASSERT_TRUE(comesToRest());
    ASSERT_TRUE(ticksOnceMore());
    EXPECT_EQ(settled, 0) << "nothing has run";
    isQuiet = false;
    ASSERT_TRUE(ticksOnceMore());
    EXPECT_EQ(settled, 0) << "it runs";
    isQuiet = true;
    ASSERT_TRUE(QTest::qWaitFor([this] { return settled == 1; }, 20000));
    ASSERT_TRUE(ticksOnceMore());
    ASSERT_TRUE(ticksOnceMore());
    EXPECT_EQ(settled, 1);
}

TEST_F(TickRestTest, IsSettledAlsoWhereEventsKeepItFromResting)
{
    isQuiet = false;
    ASSERT_TRUE(ticksOnceMore());
    isQuiet = true;
    QTimer blinking;
    QObject::connect(&blinking, &QTimer::timeout, &blinking, [] {});
    blinking.start(5ms);
    EXPECT_TRUE(QTest::qWaitFor([this] { return settled == 1; }, 20000));
}

TEST_F(TickRestTest, EndsWithAnyEventOfTheProgram)
{
    ASSERT_TRUE(comesToRest());
    QObject anybody;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&anybody, &event);
    EXPECT_FALSE(rests());
    EXPECT_TRUE(comesToRest()) << "and comes again";
}

TEST_F(TickRestTest, IsNotEndedByItsOwnTicks)
{
    ASSERT_TRUE(comesToRest());
    // The event dispatcher's own events, as the end of a wait, are none of the program's.
    const int before = ticks;
    while (ticks < before + 2) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ASSERT_TRUE(rests());
    }
}

TEST_F(TickRestTest, EndsWhenATickBringsSomething)
{
    ASSERT_TRUE(comesToRest());
    isQuiet = false;
    ASSERT_TRUE(ticksOnceMore());
    EXPECT_FALSE(rests());
}

TEST_F(TickRestTest, EndsWhenALaunchQueuesItsLines)
{
    ASSERT_TRUE(comesToRest());
    WriteIni(u"ftl"_s, u"num"_s, u"1"_s, home.ini());
    isQuiet = false; // who rests on would come to it only by a late tick
    timer.setInterval(std::chrono::hours(1));
    EXPECT_TRUE(QTest::qWaitFor([this] { return timer.interval() <= 20; }, 20000));
}

TEST_F(TickRestTest, EndsWhenTheSettingsBehindALinkChange)
{
    const QString link = home.file(u"linked/orvanta.ini"_s);
    ASSERT_TRUE(QDir(home.path()).mkdir(u"linked"_s));
    ASSERT_TRUE(QFile::link(home.ini(), link));
    restart(link);
    ASSERT_TRUE(comesToRest());
    timer.setInterval(std::chrono::hours(1));
    WriteIni(u"ftl"_s, u"num"_s, u"1"_s, link);
    EXPECT_TRUE(QTest::qWaitFor([this] { return timer.interval() <= 20; }, 20000));
}

TEST_F(TickRestTest, DoesNotComeWhereTheSettingsCannotBeWatched)
{
    restart(home.file(u"nowhere/orvanta.ini"_s));
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(ticksOnceMore());
        EXPECT_FALSE(rests());
    }
}
