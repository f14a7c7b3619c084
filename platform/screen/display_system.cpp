#include "platform/screen/display_system.h"

#include <QGuiApplication>
#include <QStringList>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Plasma puts every window of Wayland's into the middle, the picture over the main window, but
/// serves X11 as well as ever, sharp at any scale. Others enlarge X11's pictures, or place windows
/// beside each other anyway.
QByteArray preferredPlatforms(const QProcessEnvironment& environment)
{
    const bool isChosen = !environment.value(u"QT_QPA_PLATFORM"_s).isEmpty();
    const bool hasBoth = !environment.value(u"WAYLAND_DISPLAY"_s).isEmpty() &&
                         !environment.value(u"DISPLAY"_s).isEmpty();
    const QStringList desktops = environment.value(u"XDG_CURRENT_DESKTOP"_s).split(u':');
    return !isChosen && hasBoth && desktops.contains(u"KDE"_s) ? "xcb;wayland" : QByteArray();
}

static bool isOnWayland()
{
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

bool appearingTakesKeyboard()
{
    return isOnWayland();
}

bool canKeepOnTop()
{
    return !isOnWayland();
}

} // namespace orvanta
