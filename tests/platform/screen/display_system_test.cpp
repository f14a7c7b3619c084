// The display system that is chosen where a session has two.
#include "platform/screen/display_system.h"
#include "platform/screen/gnome_scaling.h"
#include "tests/platform/screen/gnome_screens.h"
#include "tests/support/private_bus.h"

#include <QThread>

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

static bool enlarges()
{
    return true;
}

static bool leavesAsItIs()
{
    return false;
}

static bool mustNotBeAsked()
{
    ADD_FAILURE() << "asked outside GNOME";
    return true;
}

TEST(DisplaySystem, PlasmaWithBothIsAskedForTheOneThatPlacesWindows)
{
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u":0"_s, u"wayland-0"_s), mustNotBeAsked),
              "xcb;wayland");
    EXPECT_EQ(preferredPlatforms(session(u"Mine:KDE"_s, u":0"_s, u"wayland-0"_s), mustNotBeAsked),
              "xcb;wayland");
}

TEST(DisplaySystem, GnomeWithBothIsAskedForItUnlessThatWouldBeBlurred)
{
    const QProcessEnvironment gnome = session(u"Mine:GNOME"_s, u":0"_s, u"wayland-0"_s);
    EXPECT_EQ(preferredPlatforms(gnome, leavesAsItIs), "xcb;wayland");
    EXPECT_EQ(preferredPlatforms(gnome, enlarges), "");
}

TEST(DisplaySystem, EverywhereElseTheToolkitChooses)
{
    EXPECT_EQ(preferredPlatforms(session(u"sway"_s, u":0"_s, u"wayland-0"_s), mustNotBeAsked), "");
    EXPECT_EQ(preferredPlatforms(session(u"GNOME"_s, u":0"_s, u""_s), mustNotBeAsked), "");
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u""_s, u"wayland-0"_s), mustNotBeAsked), "");
    EXPECT_EQ(preferredPlatforms(session(u"KDE"_s, u":0"_s, u""_s), mustNotBeAsked), "");
    EXPECT_EQ(preferredPlatforms({}, mustNotBeAsked), "");
}

TEST(DisplaySystem, TheUsersChoiceStands)
{
    QProcessEnvironment own = session(u"KDE"_s, u":0"_s, u"wayland-0"_s);
    own.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    EXPECT_EQ(preferredPlatforms(own, mustNotBeAsked), "");
}

namespace {

/// The shell answers from a thread of its own, as the program waits for it.
class Gnome : public testing::Test
{
protected:
    ~Gnome() override
    {
        m_thread.quit();
        m_thread.wait();
    }

    void showOn(uint layoutMode, const QList<double>& scales)
    {
        m_screens.layoutMode = layoutMode;
        m_screens.scales = scales;
        m_screens.moveToThread(&m_thread);
        m_thread.start();
        ASSERT_TRUE(m_shell.registerObject(u"/org/gnome/Mutter/DisplayConfig"_s, &m_screens,
                                           QDBusConnection::ExportScriptableSlots));
        ASSERT_TRUE(m_shell.registerService(u"org.gnome.Mutter.DisplayConfig"_s));
    }

    PrivateBus m_bus;
    QDBusConnection m_shell = m_bus.connection(u"shell"_s);
    QDBusConnection m_program = m_bus.connection(u"program"_s);
    GnomeScreens m_screens;

private:
    QThread m_thread;
};

constexpr uint kUnits = 1;
constexpr uint kPixels = 2;

TEST_F(Gnome, LeavesX11AsItIsWhereItCountsPixels)
{
    showOn(kPixels, {2});
    EXPECT_FALSE(shellEnlargesX11(m_program));
}

TEST_F(Gnome, LeavesX11AsItIsWhereNoScreenIsScaled)
{
    showOn(kUnits, {1, 1});
    EXPECT_FALSE(shellEnlargesX11(m_program));
}

TEST_F(Gnome, EnlargesX11WhereItCountsUnitsAndAScreenIsScaled)
{
    showOn(kUnits, {1, 1.5});
    EXPECT_TRUE(shellEnlargesX11(m_program));
}

TEST_F(Gnome, IsTakenToEnlargeX11WhereItDoesNotAnswer)
{
    EXPECT_TRUE(shellEnlargesX11(m_program));
}

} // namespace

} // namespace orvanta::test
