#include "companions/cdcreate/box_task.h"

#include "core/log.h"

#include <QMetaObject>

namespace orvanta {

BoxTask::~BoxTask()
{
    stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

static std::optional<BoxFailure> failureOf(const BoxTask::Run& run, BoxWork& work)
{
    try {
        run(work);
        return std::nullopt;
    } catch (const BoxFailure& failure) {
        return failure;
    } catch (const std::exception& error) { // no memory, for instance
        qCInfo(logErrors, "work on a box failed: %s", error.what());
        return BoxFailure(BoxProblem::ProgramFailed, QString::fromUtf8(error.what()));
    }
}

void BoxTask::start(Run run)
{
    Q_ASSERT(!isRunning());
    m_work = std::make_unique<BoxWork>([this](const BoxState& state) {
        QMetaObject::invokeMethod(
            this, [this, state] { Q_EMIT moved(state); }, Qt::QueuedConnection);
    });
    m_thread = std::thread([this, run = std::move(run)] {
        const std::optional<BoxFailure> failure = failureOf(run, *m_work);
        QMetaObject::invokeMethod(
            this, [this, failure] { end(failure); }, Qt::QueuedConnection);
    });
}

void BoxTask::stop()
{
    if (m_work) {
        m_work->stop();
    }
}

void BoxTask::end(const std::optional<BoxFailure>& failure)
{
    m_thread.join();
    Q_EMIT ended(failure ? &*failure : nullptr);
}

} // namespace orvanta
