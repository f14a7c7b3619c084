// stacking_probe: puts two windows through the stacking operations on the display it finds and
// prints a line for each outcome that the window manager confirms.

#include "platform/screen/window_stacking.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRasterWindow>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>
#include <xcb/xcb.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

static xcb_connection_t* server()
{
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

static xcb_window_t root()
{
    return xcb_setup_roots_iterator(xcb_get_setup(server())).data->root;
}

static uint32_t atom(const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(server(), 0, static_cast<uint16_t>(name.size()), name);
    auto* reply = xcb_intern_atom_reply(server(), cookie, nullptr);
    const uint32_t value = reply->atom;
    std::free(reply);
    return value;
}

static std::vector<uint32_t> property(xcb_window_t window, const QByteArray& name)
{
    const auto cookie =
        xcb_get_property(server(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 64);
    auto* reply = xcb_get_property_reply(server(), cookie, nullptr);
    if (reply == nullptr) {
        return {};
    }
    const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(reply));
    std::vector<uint32_t> list(values, values + xcb_get_property_value_length(reply) / 4);
    std::free(reply);
    return list;
}

static bool isAbove(const QWindow& window)
{
    const auto states = property(static_cast<xcb_window_t>(window.winId()), "_NET_WM_STATE");
    return std::count(states.begin(), states.end(), atom("_NET_WM_STATE_ABOVE")) > 0;
}

static bool isDirectlyBehind(const QWindow& window, const QWindow& above)
{
    const auto order = property(root(), "_NET_CLIENT_LIST_STACKING");
    const auto place = std::find(order.begin(), order.end(), window.winId());
    return place != order.end() && place + 1 != order.end() && *(place + 1) == above.winId();
}

/// A window manager that is still starting may leave a request in its queue until the server sends
/// it something else.
static void wakeManager()
{
    xcb_delete_property(server(), root(), atom("_ORVANTA_PROBE"));
    const uint32_t any = 1;
    xcb_change_property(server(), XCB_PROP_MODE_REPLACE, root(), atom("_ORVANTA_PROBE"),
                        XCB_ATOM_CARDINAL, 32, 1, &any);
    xcb_flush(server());
}

static void confirm(const char* outcome, const std::function<bool()>& holds)
{
    QElapsedTimer waiting;
    waiting.start();
    bool held = holds();
    while (!held && !waiting.hasExpired(20000)) {
        wakeManager();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
        held = holds();
    }
    std::printf("%s%s\n", held ? "" : "not ", outcome);
    std::fflush(stdout);
}

static void show(QRasterWindow& window, int x)
{
    window.setGeometry(x, 100, 200, 150);
    window.show();
}

static void putOnTopAndBack(QRasterWindow& window)
{
    const WId before = window.winId();
    setAlwaysOnTop(&window, true);
    confirm("on top", [&] { return isAbove(window); });
    setAlwaysOnTop(&window, false);
    confirm("back", [&] { return !isAbove(window); });
    confirm("the same window", [&] { return window.winId() == before && window.isVisible(); });
}

static bool hasKeyboard(const QWindow& window)
{
    const auto active = property(root(), "_NET_ACTIVE_WINDOW");
    return !active.empty() && active.front() == window.winId();
}

/// The window manager has answered everything that came before: it works in turn.
static void waitForManager(QRasterWindow& window)
{
    setAlwaysOnTop(&window, true);
    confirm("answered", [&] { return isAbove(window); });
    setAlwaysOnTop(&window, false);
    confirm("answered again", [&] { return !isAbove(window); });
}

/// Asks until it has it: a window manager that is still starting may drop a request.
static void takeKeyboard(QRasterWindow& window, const char* outcome)
{
    constexpr int kAgainMs = 200;
    QElapsedTimer asked;
    confirm(outcome, [&] {
        if (!hasKeyboard(window) && (!asked.isValid() || asked.hasExpired(kAgainMs))) {
            bringToFront(&window);
            asked.start();
        }
        return hasKeyboard(window);
    });
}

static void passKeyboard(QRasterWindow& first, QRasterWindow& second)
{
    constexpr int kTurns = 5;
    for (int turn = 0; turn < kTurns; ++turn) {
        takeKeyboard(first, "first in front");
        takeKeyboard(second, "second in front");
        stackBehind(&first, &second);
        confirm("first behind second", [&] { return isDirectlyBehind(first, second); });
        waitForManager(first);
        std::printf("%s\n",
                    hasKeyboard(second) ? "second has the keyboard" : "the first one has it");
        std::fflush(stdout);
    }
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    confirm("managed", [] { return !property(root(), "_NET_SUPPORTING_WM_CHECK").empty(); });
    QRasterWindow first;
    QRasterWindow second;
    show(first, 100);
    show(second, 150);
    confirm("shown", [&] { return first.isExposed() && second.isExposed(); });
    if (application.arguments().contains(u"keyboard"_s)) {
        passKeyboard(first, second);
        return 0;
    }
    putOnTopAndBack(first);
    bringToFront(&first);
    confirm("first in front", [&] { return QGuiApplication::focusWindow() == &first; });
    bringToFront(&second, u"launcher/orvanta/1-2-host_TIME2147483000"_s);
    confirm("second in front", [&] { return QGuiApplication::focusWindow() == &second; });
    bringToFront(&first);
    confirm("first in front", [&] { return QGuiApplication::focusWindow() == &first; });
    stackBehind(&first, &second);
    confirm("first behind second", [&] { return isDirectlyBehind(first, second); });
    stackBehind(&second, &first);
    confirm("second behind first", [&] { return isDirectlyBehind(second, first); });
    return 0;
}
