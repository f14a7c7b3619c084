// Looks at single points of a display, and presses keys on it without starting a program each time.
#pragma once

#include "tests/e2e/support/desktop.h"

#include <memory>

struct xcb_connection_t;

namespace orvanta::e2e {

class ScreenEye
{
public:
    explicit ScreenEye(const Desktop& desktop);
    ~ScreenEye();
    ScreenEye(const ScreenEye&) = delete;
    ScreenEye& operator=(const ScreenEye&) = delete;

    /// 0xrrggbb of one point of the screen.
    [[nodiscard]] unsigned colourAt(QPoint place);
    [[nodiscard]] bool isBright(QPoint place);
    /// Whether one of many points all over the screen has this colour, but for what its way through
    /// a clip changes.
    [[nodiscard]] bool shows(unsigned colour);
    /// Gives the background of the screen a dark colour.
    void darkenBackground();
    /// Presses a key of xdotool's name; returns at once.
    void press(const QByteArray& key);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const;
    };

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    OwnedProcess m_hand;
    unsigned m_root = 0;
    QSize m_screen;
};

} // namespace orvanta::e2e
