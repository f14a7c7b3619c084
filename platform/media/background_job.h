// Work on a thread of its own that nobody has to wait for.
#pragma once

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace orvanta {

/// What a piece of work and the one who wants it have in common. Outlives both.
class JobLink : public std::enable_shared_from_this<JobLink>
{
public:
    /// receiver: lives on the thread to which news are delivered.
    explicit JobLink(QObject& receiver)
        : m_receiver(&receiver)
    {}

    /// The work asks often, and ends soon after it is so.
    [[nodiscard]] bool isStopped() const { return m_stopped; }
    /// Runs this on the receiver's thread, unless the work is stopped before. From any thread.
    void deliver(std::function<void()> news);

private:
    friend class BackgroundJob;

    void stop();
    void run(const std::function<void(JobLink&)>& work);
    void waitForEnd();

    std::atomic<bool> m_stopped = false;
    std::mutex m_mutex;
    QObject* m_receiver;
    std::condition_variable m_end;
    bool m_hasEnded = false;
};

/// One piece of work at a time. A disk that does not answer keeps its thread and nothing else: who
/// stops the work goes on, and the thread ends by itself when the disk is back.
class BackgroundJob
{
public:
    using Work = std::function<void(JobLink&)>;
    enum class Pace
    {
        Background, // the picture that plays goes first
        Usual,
    };

    BackgroundJob() = default;
    ~BackgroundJob();
    BackgroundJob(const BackgroundJob&) = delete;
    BackgroundJob& operator=(const BackgroundJob&) = delete;

    /// Begins this work and stops the former. The work owns all that it touches: it may outlive
    /// whoever has begun it.
    void start(QObject& receiver, Work work, Pace pace = Pace::Background);
    /// Returns at once. Nothing is delivered any more.
    void stop();

private:
    std::shared_ptr<JobLink> m_link;
};

} // namespace orvanta
