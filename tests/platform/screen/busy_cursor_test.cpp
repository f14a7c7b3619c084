// The busy cursor over long work.

#include "core/run_time_error.h"
#include "platform/screen/busy_cursor.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QThread>

#include <atomic>
#include <gtest/gtest.h>

namespace orvanta::test {

TEST(BusyCursor, ShowsOverLongWorkAndGoesWithIt)
{
    bool shown = false;
    runWithBusyCursor([&] {
        const QDeadlineTimer deadline(20000);
        while (!shown && !deadline.hasExpired()) {
            QThread::msleep(5);
            shown = QGuiApplication::overrideCursor() != nullptr;
        }
    });
    EXPECT_TRUE(shown);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(BusyCursor, PaintsOnTheInterfaceThreadUntilTheWorkIsDone)
{
    const QThread* interface = QThread::currentThread();
    std::atomic<int> painted = 0;
    runWithBusyCursor(
        [&] {
            const QDeadlineTimer deadline(20000);
            while (painted < 3 && !deadline.hasExpired()) {
                QThread::msleep(5);
            }
        },
        [&] { painted += QThread::currentThread() == interface ? 1 : 0; });
    EXPECT_GE(painted, 3);
}

TEST(BusyCursor, TheWorkIsDoneWhenTheCallReturns)
{
    int done = 0;
    runWithBusyCursor([&] { done = 7; });
    EXPECT_EQ(done, 7);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(BusyCursor, WhatTheWorkRaisesReachesTheCaller)
{
    const auto raise = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    EXPECT_THROW(runWithBusyCursor(raise), RuntimeError);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace orvanta::test
