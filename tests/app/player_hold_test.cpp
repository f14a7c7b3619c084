// The player while the packet editor's preview runs.

#include "app/player_hold.h"
#include "tests/support/scripted_media_control.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class HoldingThePlayer : public testing::Test
{
protected:
    void SetUp() override
    {
        control.autoOpen = true;
        load(u"/clips/one.avi"_s);
    }
    void load(const QString& file)
    {
        control.setFileName(file);
        ASSERT_TRUE(QTest::qWaitFor([this] { return control.isReady(); }));
    }
    [[nodiscard]] MediaControl::State state() const { return control.CurrentState(); }

    ScriptedMediaControl control;
    PlayerHold hold{control};
};

TEST_F(HoldingThePlayer, PausesARunningClipAndLetsItGoOn)
{
    control.Run();
    EXPECT_TRUE(hold.hold());
    EXPECT_EQ(state(), MediaControl::Paused);
    hold.release();
    EXPECT_EQ(state(), MediaControl::Running);
}

TEST_F(HoldingThePlayer, LeavesAClipThatDidNotRun)
{
    control.Pause();
    control.calls.clear();
    EXPECT_FALSE(hold.hold());
    hold.release();
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(HoldingThePlayer, DoesNotStartAClipThatWasLoadedMeanwhile)
{
    control.Run();
    hold.hold();
    load(u"/clips/two.avi"_s);
    control.Run();
    control.Pause();
    hold.release();
    EXPECT_EQ(state(), MediaControl::Paused);
}

TEST_F(HoldingThePlayer, DoesNotStartAClipThatWasStoppedMeanwhile)
{
    control.Run();
    hold.hold();
    control.Stop();
    hold.release();
    EXPECT_EQ(state(), MediaControl::Stopped);
}

TEST_F(HoldingThePlayer, LetsGoOnlyOnce)
{
    control.Run();
    hold.hold();
    hold.release();
    control.Pause();
    hold.release();
    EXPECT_EQ(state(), MediaControl::Paused);
}

} // namespace orvanta::test
