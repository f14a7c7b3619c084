#include "platform/screen/window_stacking.h"

#include "core/log.h"
#include "platform/screen/x11.h"

#include <QGuiApplication>
#include <QWindow>

#include <array>

namespace orvanta {

using namespace Qt::StringLiterals;

/// When the user started the launch that asks, in the X server's milliseconds; 0 when unknown.
/// Launchers put it at the end of the token, behind "_TIME".
static uint32_t timeOfToken(const QString& activationToken)
{
    const qsizetype place = activationToken.lastIndexOf(u"_TIME"_s);
    return place < 0 ? 0 : activationToken.mid(place + 5).toUInt();
}

/// Asks the window manager in the name of the launch that the user has just made. Without its time
/// the request would carry the user's last action in this program, which may be long past, and
/// would be refused as an attempt to steal the focus.
static void activateOnX11(xcb_connection_t* connection, QWindow* window, uint32_t time)
{
    constexpr uint32_t kFromApplication = 1;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window->winId());
    message.type = x11Atom(connection, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kFromApplication;
    message.data.data32[1] = time;
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_send_event(connection, 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message)); // the protocol's own view of an event
    xcb_flush(connection);
}

static bool isWayland()
{
    return QGuiApplication::platformName().startsWith(u"wayland"_s);
}

void bringToFront(QWindow* window, const QString& activationToken)
{
    if (window == nullptr) {
        return;
    }
    window->raise();
    xcb_connection_t* connection = x11Connection();
    const uint32_t time = timeOfToken(activationToken);
    if (connection != nullptr && time != 0) {
        activateOnX11(connection, window, time);
        return;
    }
    if (isWayland() && !activationToken.isEmpty()) {
        // The next activation request takes it from here.
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    }
    window->requestActivate();
}

QString launchActivationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

void setAlwaysOnTop(QWindow* window, bool onTop)
{
    if (window == nullptr) {
        return;
    }
    if (isWayland()) {
        qCInfo(logDesktop, "this display system keeps no window on top");
        return;
    }
    // On the window, not on the widget: a widget's flag would hide and re-create the window.
    window->setFlag(Qt::WindowStaysOnTopHint, onTop);
}

/// The configuration that puts a window below another one, as the X server would ask a window
/// manager.
static xcb_configure_request_event_t requestBelow(xcb_window_t window, xcb_window_t above,
                                                  xcb_window_t root)
{
    xcb_configure_request_event_t request = {};
    request.response_type = XCB_CONFIGURE_REQUEST;
    request.stack_mode = XCB_STACK_MODE_BELOW;
    request.parent = root;
    request.window = window;
    request.sibling = above;
    request.value_mask = XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE;
    return request;
}

/// Without the other one's name the window would first have to be raised, and xfwm4 gives a window
/// that raises itself the keyboard. Where the frames of a window manager hold the two, the server
/// refuses, and the manager itself is asked.
static void stackBehindOnX11(xcb_connection_t* connection, QWindow* window, QWindow* above)
{
    const auto lower = static_cast<xcb_window_t>(window->winId());
    const auto upper = static_cast<xcb_window_t>(above->winId());
    const std::array<uint32_t, 2> values = {upper, XCB_STACK_MODE_BELOW};
    const X11Reply<xcb_generic_error_t> refusal(
        xcb_request_check(connection, xcb_configure_window_checked(connection, lower,
                                                                   XCB_CONFIG_WINDOW_SIBLING |
                                                                       XCB_CONFIG_WINDOW_STACK_MODE,
                                                                   values.data())),
        &std::free);
    if (refusal) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        const xcb_configure_request_event_t request = requestBelow(lower, upper, root);
        xcb_send_event(connection, 0, root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&request)); // the protocol's own view
        xcb_flush(connection);
    }
}

void stackBehind(QWindow* window, QWindow* above)
{
    if (window == nullptr || above == nullptr) {
        return;
    }
    if (isWayland()) {
        qCInfo(logDesktop, "this display system lets no program stack its windows");
        return;
    }
    above->raise();
    if (xcb_connection_t* connection = x11Connection()) {
        stackBehindOnX11(connection, window, above);
    }
}

} // namespace orvanta
