#include "benches/mpv_process.h"

#include "tests/e2e/support/wait.h"

#include <QFileInfo>

#include <cstdlib>
#include <xcb/xcb.h>

namespace orvanta::bench {

using namespace Qt::StringLiterals;

MpvProcess::MpvProcess(const e2e::Desktop& desktop)
    : m_socketPath(desktop.folder() + u"/mpv-%1"_s.arg(std::rand()))
{
    m_process.setProcessEnvironment(desktop.environment());
}

void MpvProcess::start(const QStringList& more)
{
    m_process.start(u"mpv"_s, QStringList{u"--no-config"_s, u"--no-terminal"_s, u"--idle"_s,
                                          u"--force-window"_s, u"--pause"_s,
                                          u"--input-ipc-server="_s + m_socketPath} +
                                  more);
}

bool MpvProcess::connectToIt()
{
    return e2e::waitFor([this] {
        if (m_socket.state() == QLocalSocket::UnconnectedState && QFileInfo::exists(m_socketPath)) {
            m_socket.connectToServer(m_socketPath);
        }
        return m_socket.state() == QLocalSocket::ConnectedState;
    });
}

void MpvProcess::send(const QByteArray& command)
{
    m_socket.write("{\"command\":[" + command + "]}\n");
    m_socket.flush();
}

void MpvProcess::loadList(const QString& file)
{
    send("\"observe_property\",1,\"playlist-count\"");
    send("\"loadlist\",\"" + file.toUtf8() + '"');
}

bool MpvProcess::waitForEntries(int count)
{
    return hears("\"data\":" + QByteArray::number(count));
}

bool MpvProcess::waitForEvent(const QByteArray& event)
{
    return hears("\"event\":\"" + event + '"');
}

bool MpvProcess::hears(const QByteArray& wanted)
{
    QByteArray heard;
    while (!heard.contains(wanted)) {
        if (!m_socket.waitForReadyRead(e2e::kPatienceMs)) {
            return false;
        }
        heard += m_socket.readAll();
    }
    return true;
}

static xcb_screen_t* screenOf(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

void MapWatch::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

MapWatch::MapWatch(const e2e::Desktop& desktop)
    : m_connection(
          xcb_connect(desktop.environment().value(u"DISPLAY"_s).toLatin1().constData(), nullptr))
{
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), screenOf(m_connection.get())->root,
                                 XCB_CW_EVENT_MASK, &events);
    // A round trip: from here on nothing is missed.
    std::free(xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()),
                                        nullptr));
}

bool MapWatch::hasClass(unsigned window, const QByteArray& windowClass) const
{
    constexpr uint32_t kLongest = 64; // in words
    const auto request = xcb_get_property(m_connection.get(), 0, window, XCB_ATOM_WM_CLASS,
                                          XCB_ATOM_STRING, 0, kLongest);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(m_connection.get(), request, nullptr);
    if (reply == nullptr) {
        return false;
    }
    const QByteArray names(static_cast<const char*>(xcb_get_property_value(reply)),
                           xcb_get_property_value_length(reply));
    std::free(reply);
    return names.split('\0').contains(windowClass);
}

bool MapWatch::waitForWindow(const QByteArray& windowClass) const
{
    bool found = false;
    while (!found) {
        xcb_generic_event_t* event = xcb_wait_for_event(m_connection.get());
        if (event == nullptr) {
            return false;
        }
        if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY) {
            found = hasClass(reinterpret_cast<xcb_map_notify_event_t*>(event)->window, windowClass);
        }
        std::free(event);
    }
    return true;
}

} // namespace orvanta::bench
