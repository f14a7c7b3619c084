#include "platform/media/background_job.h"

#include "core/log.h"

#include <QMetaObject>

#include <chrono>
#include <exception>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace orvanta {

// The work ends within this unless a disk holds it; a program that ends should find it ended.
constexpr std::chrono::milliseconds kPatienceAtEnd(250);

// The picture that plays goes first.
static void stepBack()
{
    constexpr int kNiceness = 10;
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
}

void JobLink::deliver(std::function<void()> news)
{
    const std::lock_guard lock(m_mutex);
    if (m_stopped) {
        return;
    }
    QMetaObject::invokeMethod(
        m_receiver,
        [link = shared_from_this(), news = std::move(news)] {
            if (!link->isStopped()) {
                news();
            }
        },
        Qt::QueuedConnection);
}

/// Whoever delivers meanwhile has the receiver still.
void JobLink::stop()
{
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_receiver = nullptr;
}

void JobLink::run(const std::function<void(JobLink&)>& work)
{
    try {
        work(*this);
    } catch (const std::exception& error) {
        qCInfo(logErrors, "work in the background failed: %s", error.what());
    }
    const std::lock_guard lock(m_mutex);
    m_hasEnded = true;
    m_end.notify_all();
}

void JobLink::waitForEnd()
{
    std::unique_lock lock(m_mutex);
    m_end.wait_for(lock, kPatienceAtEnd, [this] { return m_hasEnded; });
}

BackgroundJob::~BackgroundJob()
{
    if (m_link) {
        m_link->stop();
        m_link->waitForEnd();
    }
}

void BackgroundJob::start(QObject& receiver, Work work, Pace pace)
{
    stop();
    m_link = std::make_shared<JobLink>(receiver);
    try {
        std::thread([link = m_link, work = std::move(work), pace] {
            if (pace == Pace::Background) {
                stepBack();
            }
            link->run(work);
        }).detach();
    } catch (const std::system_error& error) {
        qCInfo(logErrors, "no thread for work in the background: %s", error.what());
        m_link.reset();
    }
}

void BackgroundJob::stop()
{
    if (m_link) {
        m_link->stop();
        m_link.reset();
    }
}

} // namespace orvanta
