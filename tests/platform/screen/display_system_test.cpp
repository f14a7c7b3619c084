// The display system that is chosen where a session has two.
#include "platform/screen/display_system.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static QProcessEnvironment session(const QString& desktop, const QString& x11,
                                   const QString& wayland)
{
    QProcessEnvironment environment;
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, desktop);
    environment.insert(u"DISPLAY"_s, x11);
    environment.insert(u"WAYLAND_DISPLAY"_s, wayland);
    return environment;
}

TEST(DisplaySystem, PlasmaWithBothIsAskedForTheOneThatPlacesWindows)
{
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u":0"_s, u"wayland-0"_s)), "xcb;wayland");
    EXPECT_EQ(preferredPlatforms(session(u"Mine:KDE"_s, u":0"_s, u"wayland-0"_s)), "xcb;wayland");
}

TEST(DisplaySystem, EverywhereElseTheToolkitChooses)
{
    EXPECT_EQ(preferredPlatforms(session(u"GNOME"_s, u":0"_s, u"wayland-0"_s)), "");
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u""_s, u"wayland-0"_s)), "");
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u":0"_s, u""_s)), "");
    EXPECT_EQ(preferredPlatforms({}), "");
}

TEST(DisplaySystem, TheUsersChoiceStands)
{
    QProcessEnvironment own = session(u"KDE"_s, u":0"_s, u"wayland-0"_s);
    own.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    EXPECT_EQ(preferredPlatforms(own), "");
}

} // namespace orvanta::test
