#include "editors/responsive.h"

#include <QCursor>
#include <QGuiApplication>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

namespace orvanta::test {

TEST(RunResponsively, WindowsGoOnWhileTheWorkTakesLong)
{
    constexpr int kLimitMilliseconds = 10'000;
    QSemaphore served;
    bool wasServed = false;
    Qt::CursorShape shown = Qt::ArrowCursor;
    QTimer::singleShot(0, [&] {
        shown = QGuiApplication::overrideCursor()->shape();
        served.release();
    });
    runResponsively([&] { wasServed = served.tryAcquire(1, kLimitMilliseconds); });
    EXPECT_TRUE(wasServed);
    EXPECT_EQ(shown, Qt::WaitCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(RunResponsively, TheWorkIsDoneWhenItReturns)
{
    const QThread* worker = nullptr;
    runResponsively([&] { worker = QThread::currentThread(); });
    EXPECT_NE(worker, nullptr);
    EXPECT_NE(worker, qApp->thread());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace orvanta::test
