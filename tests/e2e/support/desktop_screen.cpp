// What only the display server itself can tell.

#include "tests/e2e/support/desktop.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <algorithm>
#include <memory>

namespace orvanta::e2e {

bool Desktop::isPointerVisible() const
{
    const QByteArray name = m_environment.value(QStringLiteral("DISPLAY")).toLatin1();
    const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(name.constData()),
                                                              XCloseDisplay);
    if (!display) {
        return false;
    }
    const std::unique_ptr<XFixesCursorImage, int (*)(void*)> picture(
        XFixesGetCursorImage(display.get()), XFree);
    if (!picture) {
        return false;
    }
    const unsigned long* pixels = picture->pixels;
    const auto count = static_cast<std::ptrdiff_t>(picture->width) * picture->height;
    return std::any_of(pixels, pixels + count,
                       [](unsigned long pixel) { return (pixel >> 24 & 0xffUL) != 0; });
}

} // namespace orvanta::e2e
