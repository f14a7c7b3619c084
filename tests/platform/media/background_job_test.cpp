// Work that nobody waits for.
#include "platform/media/background_job.h"
#include "tests/support/log_capture.h"
#include "tests/support/recorded_player.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <semaphore>
#include <stdexcept>
#include <thread>

namespace orvanta::test {

namespace {

/// A disk that does not answer until it is told to.
struct Disk
{
    std::binary_semaphore answers{0};
    std::atomic<bool> isAsked = false;
    std::atomic<bool> isLeft = false;
};

BackgroundJob::Work readingFrom(const std::shared_ptr<Disk>& disk, int& news)
{
    return [disk, &news](JobLink& link) {
        disk->isAsked = true;
        disk->answers.acquire();
        link.deliver([&news] { ++news; });
        disk->isLeft = true;
    };
}

} // namespace

TEST(BackgroundWork, DeliversOnTheThreadThatHasBegunIt)
{
    QObject receiver;
    BackgroundJob job;
    std::thread::id worked;
    std::thread::id delivered;
    job.start(receiver, [&](JobLink& link) {
        link.deliver([&, own = std::this_thread::get_id()] {
            worked = own;
            delivered = std::this_thread::get_id();
        });
    });
    ASSERT_TRUE(comesTrue([&] { return delivered != std::thread::id(); }));
    EXPECT_EQ(delivered, std::this_thread::get_id());
    EXPECT_NE(delivered, worked);
}

TEST(BackgroundWork, ThatIsStoppedDeliversNothingAnyMore)
{
    QObject receiver;
    BackgroundJob job;
    const auto disk = std::make_shared<Disk>();
    int news = 0;
    job.start(receiver, readingFrom(disk, news));
    ASSERT_TRUE(comesTrue([&] { return disk->isAsked.load(); }));
    job.stop();
    disk->answers.release();
    ASSERT_TRUE(comesTrue([&] { return disk->isLeft.load(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(news, 0);
}

TEST(BackgroundWork, DeliversNothingThatWasUnderWayWhenItWasStopped)
{
    QObject receiver;
    BackgroundJob job;
    const auto disk = std::make_shared<Disk>();
    int news = 0;
    job.start(receiver, readingFrom(disk, news));
    disk->answers.release();
    while (!disk->isLeft) { // without the event loop: the news waits in it
        std::this_thread::yield();
    }
    job.stop();
    QCoreApplication::processEvents();
    EXPECT_EQ(news, 0);
}

TEST(BackgroundWork, OnADiskThatDoesNotAnswerIsLeftBehind)
{
    const auto disk = std::make_shared<Disk>();
    int news = 0;
    {
        QObject receiver;
        BackgroundJob job;
        job.start(receiver, readingFrom(disk, news));
        ASSERT_TRUE(comesTrue([&] { return disk->isAsked.load(); }));
    }
    EXPECT_FALSE(disk->isLeft); // the job has gone, its reading has not
    disk->answers.release();
    EXPECT_TRUE(comesTrue([&] { return disk->isLeft.load(); }));
    EXPECT_EQ(news, 0);
}

TEST(BackgroundWork, ThatFailsIsLogged)
{
    const LogCapture log("orvanta.errors");
    QObject receiver;
    BackgroundJob job;
    std::weak_ptr<int> held;
    {
        const auto kept = std::make_shared<int>(0);
        held = kept;
        job.start(receiver, [kept](JobLink&) { throw std::runtime_error("no memory"); });
    }
    ASSERT_TRUE(comesTrue([&] { return held.expired(); })); // the thread is at its end
    ASSERT_EQ(LogCapture::lines().size(), 1);
    EXPECT_TRUE(LogCapture::lines().first().endsWith(QStringLiteral("no memory")));
}

} // namespace orvanta::test
