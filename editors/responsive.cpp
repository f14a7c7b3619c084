#include "editors/responsive.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QThread>

#include <memory>

namespace orvanta {

void runResponsively(const std::function<void()>& work)
{
    constexpr unsigned long kBlinkMilliseconds = 100;
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->start();
    if (thread->wait(kBlinkMilliseconds)) {
        return;
    }
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    // It may have ended just before the connection.
    if (thread->isRunning()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    thread->wait();
    QGuiApplication::restoreOverrideCursor();
}

} // namespace orvanta
