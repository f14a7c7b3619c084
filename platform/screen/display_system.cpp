#include "platform/screen/display_system.h"

#include <QGuiApplication>
#include <QStringList>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Under Wayland no program places its windows: Plasma puts every one into the middle, the picture
/// over the main window. Both desktops serve X11 as well as ever, sharp at any scale but where
/// GNOME enlarges it.
QByteArray preferredPlatforms(const QProcessEnvironment& environment,
                              const std::function<bool()>& shellEnlargesX11)
{
    const bool isChosen = !environment.value(u"QT_QPA_PLATFORM"_s).isEmpty();
    const bool hasBoth = !environment.value(u"WAYLAND_DISPLAY"_s).isEmpty() &&
                         !environment.value(u"DISPLAY"_s).isEmpty();
    const QStringList desktops = environment.value(u"XDG_CURRENT_DESKTOP"_s).split(u':');
    if (isChosen || !hasBoth) {
        return {};
    }
    const bool isBetterByX11 =
        desktops.contains(u"KDE"_s) || (desktops.contains(u"GNOME"_s) && !shellEnlargesX11());
    return isBetterByX11 ? "xcb;wayland" : QByteArray();
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
