#include "bench/screen_eye.h"

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace orvanta::bench {

using namespace Qt::StringLiterals;

void ScreenEye::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

ScreenEye::ScreenEye(const e2e::Desktop& desktop)
    : m_connection(
          xcb_connect(desktop.environment().value(u"DISPLAY"_s).toLatin1().constData(), nullptr)),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root)
{
    m_hand.setProcessEnvironment(desktop.environment());
    m_hand.start(u"xdotool"_s, {u"-"_s});
    m_hand.waitForStarted();
}

ScreenEye::~ScreenEye() = default;

unsigned ScreenEye::colourAt(QPoint place)
{
    const auto request =
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                      static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()), 1, 1, ~0U);
    xcb_get_image_reply_t* reply = xcb_get_image_reply(m_connection.get(), request, nullptr);
    if (reply == nullptr) {
        return 0;
    }
    unsigned pixel = 0;
    std::memcpy(&pixel, xcb_get_image_data(reply), sizeof pixel);
    std::free(reply);
    return pixel & 0xffffffU;
}

bool ScreenEye::isBright(QPoint place)
{
    const unsigned colour = colourAt(place);
    return (colour >> 16) + (colour >> 8 & 0xffU) + (colour & 0xffU) > 3 * 128;
}

void ScreenEye::darkenBackground()
{
    const uint32_t dark = 0x101020;
    xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_BACK_PIXEL, &dark);
    xcb_clear_area(m_connection.get(), 0, m_root, 0, 0, 0, 0);
    xcb_flush(m_connection.get());
}

void ScreenEye::press(const QByteArray& key)
{
    m_hand.write("key " + key + '\n');
    m_hand.waitForBytesWritten();
}

} // namespace orvanta::bench
