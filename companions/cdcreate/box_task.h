// Work on a box in a thread of its own.
#pragma once

#include "companions/cdcreate/box_work.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace orvanta {

/// Signals come on the thread that it lives on. Going, it stops the work and waits for its end:
/// nothing is left half written.
class BoxTask : public QObject
{
    Q_OBJECT

public:
    using Run = std::function<void(BoxWork& work)>;

    ~BoxTask() override;

    /// The work owns all that it touches. Not while another one runs.
    void start(Run run);
    /// Ends soon after, with BoxProblem::Stopped.
    void stop();
    [[nodiscard]] bool isRunning() const { return m_thread.joinable(); }

Q_SIGNALS:
    void moved(const orvanta::BoxState& state);
    /// Null: it is done.
    void ended(const orvanta::BoxFailure* failure);

private:
    void end(const std::optional<BoxFailure>& failure);

    std::unique_ptr<BoxWork> m_work;
    std::thread m_thread;
};

} // namespace orvanta
