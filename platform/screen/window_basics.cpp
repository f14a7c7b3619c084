#include "platform/screen/window_basics.h"

#include "platform/screen/x11.h"

#include <QGuiApplication>
#include <QTextDocument>

namespace orvanta {

// A compositing manager owns this selection for as long as it runs.
static bool isComposited(xcb_connection_t* connection)
{
    const xcb_atom_t selection = x11Atom(connection, "_NET_WM_CM_S0");
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection),
                                      nullptr),
        &std::free);
    return owner && owner->owner != XCB_NONE;
}

QSize firstSizeOn(const QScreen& screen, QSize wanted)
{
    constexpr QSize kFrame(16, 48); // of any usual window manager
    return wanted.boundedTo(screen.availableSize() - kFrame);
}

bool areWindowsBlended()
{
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        return true;
    }
    xcb_connection_t* connection = x11Connection();
    return connection != nullptr && isComposited(connection);
}

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace orvanta
