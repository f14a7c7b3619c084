// The ordinary player beside which the program is measured.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <QLocalSocket>

#include <memory>

struct xcb_connection_t;

namespace orvanta::bench {

/// mpv without a configuration, idle, with its window; steered through its socket.
class MpvProcess
{
public:
    explicit MpvProcess(const e2e::Desktop& desktop);

    /// more: further options, and files.
    void start(const QStringList& more = {});
    [[nodiscard]] qint64 pid() const { return m_process.processId(); }
    [[nodiscard]] bool connectToIt();
    void loadList(const QString& file);
    /// Until its playlist has so many entries.
    [[nodiscard]] bool waitForEntries(int count);

    /// A command in the words of its socket: "seek", 30, "absolute".
    void send(const QByteArray& command);
    /// Until it reports this event, by its name.
    [[nodiscard]] bool waitForEvent(const QByteArray& event);

private:
    [[nodiscard]] bool hears(const QByteArray& wanted);

    QString m_socketPath;
    e2e::OwnedProcess m_process;
    QLocalSocket m_socket;
};

/// Learns from the display which windows appear, from its construction on.
class MapWatch
{
public:
    explicit MapWatch(const e2e::Desktop& desktop);

    /// Blocks until a window of this class (WM_CLASS) is mapped.
    [[nodiscard]] bool waitForWindow(const QByteArray& windowClass) const;

private:
    [[nodiscard]] bool hasClass(unsigned window, const QByteArray& windowClass) const;

    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const;
    };

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
};

} // namespace orvanta::bench
