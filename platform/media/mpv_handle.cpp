#include "platform/media/mpv_handle.h"

#include "core/log.h"
#include "core/run_time_error.h"
#include "platform/media/retired_player.h"

#include <utility>
#include <vector>

namespace orvanta {

constexpr unsigned kMajorShift = 16;
constexpr int kAskAgainMilliseconds = 20;

static bool versionFits()
{
    return mpv_client_api_version() >> kMajorShift == MPV_CLIENT_API_VERSION >> kMajorShift;
}

static mpv_handle* createPlayer()
{
    mpv_handle* handle = versionFits() ? mpv_create() : nullptr;
    if (handle == nullptr) {
        qCCritical(logErrors, "the player library cannot be used");
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return handle;
}

static bool accepted(int result, const char* what)
{
    if (result < 0) {
        qCInfo(logErrors, "player library, %s: %s", what, mpv_error_string(result));
    }
    return result >= 0;
}

MpvHandle::MpvHandle()
    : m_handle(createPlayer())
{
    m_askAgain.setSingleShot(true);
    connect(&m_askAgain, &QTimer::timeout, this, &MpvHandle::askWaiting);
}

MpvHandle::~MpvHandle()
{
    if (m_handle) {
        retire({giveAway(), nullptr}, kPatienceAtEnd);
    }
}

MpvHandle::Owner MpvHandle::giveAway()
{
    m_askAgain.stop();
    m_waiting.clear();
    if (m_handle) {
        mpv_set_wakeup_callback(m_handle.get(), nullptr, nullptr);
    }
    return std::move(m_handle);
}

bool MpvHandle::setOption(const char* name, const QByteArray& value)
{
    return accepted(mpv_set_option_string(get(), name, value.constData()), name);
}

bool MpvHandle::setOption(const char* name, mpv_node value)
{
    return accepted(mpv_set_option(get(), name, MPV_FORMAT_NODE, &value), name);
}

void MpvHandle::initialize()
{
    mpv_set_wakeup_callback(get(), &MpvHandle::wakeUp, this);
    mpv_request_log_messages(get(), "error");
    if (!accepted(mpv_initialize(get()), "start")) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
}

/// Behind those that wait, so that none overtakes another.
void MpvHandle::ask(const char* what, const Request& request)
{
    const int result = m_waiting.empty() ? request() : MPV_ERROR_EVENT_QUEUE_FULL;
    if (result == MPV_ERROR_EVENT_QUEUE_FULL) {
        m_waiting.emplace_back(what, request);
        m_askAgain.start(kAskAgainMilliseconds);
    } else {
        accepted(result, what);
    }
}

void MpvHandle::askWaiting()
{
    qCInfo(logErrors, "player library: %zu requests had to wait", m_waiting.size());
    for (auto waiting = std::exchange(m_waiting, {}); !waiting.empty(); waiting.pop_front()) {
        ask(waiting.front().first.constData(), waiting.front().second);
    }
}

void MpvHandle::command(const QByteArrayList& words, quint64 id)
{
    ask(words.first().constData(), [this, words, id] {
        std::vector<const char*> arguments;
        for (const QByteArray& word : words) {
            arguments.push_back(word.constData());
        }
        arguments.push_back(nullptr);
        return mpv_command_async(get(), id, arguments.data());
    });
}

void MpvHandle::set(const char* property, bool value)
{
    ask(property, [this, property, flag = value ? 1 : 0]() mutable {
        return mpv_set_property_async(get(), 0, property, MPV_FORMAT_FLAG, &flag);
    });
}

void MpvHandle::set(const char* property, double value)
{
    ask(property, [this, property, value]() mutable {
        return mpv_set_property_async(get(), 0, property, MPV_FORMAT_DOUBLE, &value);
    });
}

void MpvHandle::set(const char* property, const QByteArray& value)
{
    ask(property, [this, property, value] {
        const char* text = value.constData();
        return mpv_set_property_async(get(), 0, property, MPV_FORMAT_STRING, &text);
    });
}

void MpvHandle::ask(const char* property, mpv_format format, quint64 id)
{
    ask(property, [this, property, format, id] {
        return mpv_get_property_async(get(), id, property, format);
    });
}

void MpvHandle::observe(const char* property, mpv_format format, quint64 id)
{
    accepted(mpv_observe_property(get(), id, property, format), property);
}

mpv_event* MpvHandle::nextEvent()
{
    mpv_event* event = mpv_wait_event(get(), 0);
    return event->event_id == MPV_EVENT_NONE ? nullptr : event;
}

// Called on the library's threads, where nothing of it may be called.
void MpvHandle::wakeUp(void* self)
{
    auto* handle = static_cast<MpvHandle*>(self);
    if (!handle->m_announced.exchange(true)) {
        QMetaObject::invokeMethod(handle, &MpvHandle::announceEvents, Qt::QueuedConnection);
    }
}

void MpvHandle::announceEvents()
{
    m_announced = false;
    Q_EMIT eventsWaiting();
}

} // namespace orvanta
