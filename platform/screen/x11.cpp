#include "platform/screen/x11.h"

#include <QGuiApplication>

#include <cstring>

namespace orvanta {

xcb_connection_t* x11Connection()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t x11Atom(xcb_connection_t* connection, const char* name)
{
    const auto length = static_cast<uint16_t>(std::strlen(name));
    const X11Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace orvanta
