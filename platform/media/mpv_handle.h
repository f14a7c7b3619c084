// One player of the player library: created, configured and spoken to without waiting for it.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>
#include <QTimer>

#include <mpv/client.h>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace orvanta {

/// Owns an mpv_handle. Requests are asynchronous: the library answers with events that carry the
/// request's id. Requests are served in the order in which they were made; while the library takes
/// no more, because too many of its answers are unread, they wait here. Interface thread only.
class MpvHandle : public QObject
{
    Q_OBJECT

public:
    struct Destroy
    {
        void operator()(mpv_handle* handle) const { mpv_terminate_destroy(handle); }
    };
    /// Waits for the player's end.
    using Owner = std::unique_ptr<mpv_handle, Destroy>;

    /// Raises 53 when the library's version does not fit or it cannot be created (it refuses while
    /// the C library's decimal mark is not a point).
    MpvHandle();
    ~MpvHandle() override;

    [[nodiscard]] mpv_handle* get() const { return m_handle.get(); }

    /// Before initialize(). Returns whether the library knows the option and takes the value.
    bool setOption(const char* name, const QByteArray& value);
    bool setOption(const char* name, mpv_node value);
    /// Raises 53 when the player cannot start.
    void initialize();

    void command(const QByteArrayList& words, quint64 id);
    void set(const char* property, bool value);
    void set(const char* property, double value);
    void set(const char* property, const QByteArray& value);
    void ask(const char* property, mpv_format format, quint64 id);
    void observe(const char* property, mpv_format format, quint64 id);

    /// The next event, or null when there is none. Valid until the next call.
    [[nodiscard]] mpv_event* nextEvent();

    /// Gives the player away, which says nothing any more; nothing may be asked of this any more.
    [[nodiscard]] Owner giveAway();

Q_SIGNALS:
    /// There are events. Comes from the event loop, at most once for any number of them.
    void eventsWaiting();

private:
    using Request = std::function<int()>; // what the library says to it

    void ask(const char* what, const Request& request);
    void askWaiting();
    static void wakeUp(void* self);
    Q_INVOKABLE void announceEvents();

    Owner m_handle;
    std::atomic<bool> m_announced = false;
    std::deque<std::pair<QByteArray, Request>> m_waiting; // with what they are about
    QTimer m_askAgain;
};

} // namespace orvanta
