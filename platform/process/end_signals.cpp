#include "platform/process/end_signals.h"

#include "core/log.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace orvanta {

constexpr std::array kEndSignals = {SIGTERM, SIGINT, SIGHUP};

// The only thing that a signal handler can reach.
static volatile std::sig_atomic_t writeEnd = -1;

extern "C" {
static void passSignalOn(int)
{
    const int savedError = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = savedError;
}
}

/// A signal that the starting program had ignored (nohup) stays ignored.
static void installHandler(int signal)
{
    struct sigaction current = {};
    ::sigaction(signal, nullptr, &current);
    if (current.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action = {};
    action.sa_handler = passSignalOn;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

static void removeHandler(int signal)
{
    struct sigaction current = {};
    ::sigaction(signal, nullptr, &current);
    if (current.sa_handler == passSignalOn) {
        std::signal(signal, SIG_DFL);
    }
}

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{
    std::array<int, 2> ends = {};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0) {
        qCInfo(logErrors, "signals end the program at once: no socket pair");
        return;
    }
    writeEnd = ends[0];
    m_readEnd = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &EndSignals::takeSignal);
    for (const int signal : kEndSignals) {
        installHandler(signal);
    }
}

EndSignals::~EndSignals()
{
    if (m_readEnd < 0) {
        return;
    }
    for (const int signal : kEndSignals) {
        removeHandler(signal);
    }
    delete m_notifier;
    ::close(writeEnd);
    ::close(m_readEnd);
    writeEnd = -1;
}

void EndSignals::takeSignal()
{
    std::array<char, 64> bytes = {};
    while (::read(m_readEnd, bytes.data(), bytes.size()) > 0) {
    }
    Q_EMIT endRequested();
}

} // namespace orvanta
