#include "tests/e2e/support/screen_eye.h"

#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/xcb.h>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

void ScreenEye::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

ScreenEye::ScreenEye(const Desktop& desktop)
    : m_connection(
          xcb_connect(desktop.environment().value(u"DISPLAY"_s).toLatin1().constData(), nullptr)),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root),
      m_screen(desktop.screenSize())
{
    m_hand.setProcessEnvironment(desktop.environment());
    m_hand.start(u"xdotool"_s, {u"-"_s});
    m_hand.waitForStarted();
}

ScreenEye::~ScreenEye() = default;

static xcb_get_image_cookie_t askFor(xcb_connection_t* connection, unsigned root, QPoint place)
{
    return xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root,
                         static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()), 1, 1,
                         ~0U);
}

static unsigned answerTo(xcb_connection_t* connection, xcb_get_image_cookie_t request)
{
    xcb_get_image_reply_t* reply = xcb_get_image_reply(connection, request, nullptr);
    if (reply == nullptr) {
        return 0;
    }
    unsigned pixel = 0;
    std::memcpy(&pixel, xcb_get_image_data(reply), sizeof pixel);
    std::free(reply);
    return pixel & 0xffffffU;
}

unsigned ScreenEye::colourAt(QPoint place)
{
    return answerTo(m_connection.get(), askFor(m_connection.get(), m_root, place));
}

static bool isLike(unsigned colour, unsigned other)
{
    constexpr int kNear = 24; // of 255
    const auto differ = [&](int bits) {
        return std::abs(static_cast<int>(colour >> bits & 0xffU) -
                        static_cast<int>(other >> bits & 0xffU)) > kNear;
    };
    return !differ(0) && !differ(8) && !differ(16);
}

bool ScreenEye::shows(unsigned colour)
{
    constexpr int kStep = 96; // pixels; the pictures that are looked for are larger
    std::vector<xcb_get_image_cookie_t> requests;
    for (int y = kStep / 2; y < m_screen.height(); y += kStep) {
        for (int x = kStep / 2; x < m_screen.width(); x += kStep) {
            requests.push_back(askFor(m_connection.get(), m_root, {x, y}));
        }
    }
    bool found = false;
    for (const xcb_get_image_cookie_t request : requests) { // all of them: answers are memory
        found = isLike(answerTo(m_connection.get(), request), colour) || found;
    }
    return found;
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

} // namespace orvanta::e2e
