// Keeping the desktop awake, over services of the test's own on a private bus.
#include "platform/screen/idle_inhibition.h"
#include "tests/platform/screen/idle_services.h"
#include "tests/support/log_capture.h"
#include "tests/support/private_bus.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSlots = QDBusConnection::ExportScriptableSlots;

class Inhibition : public testing::Test
{
protected:
    void serveScreenSaver()
    {
        ASSERT_TRUE(desktop.registerObject(u"/org/freedesktop/ScreenSaver"_s, &saver, kSlots));
        ASSERT_TRUE(desktop.registerService(u"org.freedesktop.ScreenSaver"_s));
    }

    void servePortal()
    {
        ASSERT_TRUE(desktop.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal, kSlots));
        ASSERT_TRUE(desktop.registerObject(u"/request/1"_s, &request, kSlots));
        ASSERT_TRUE(desktop.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    PrivateBus bus;
    QDBusConnection desktop = bus.connection(u"desktop"_s);
    QDBusConnection program = bus.connection(u"program"_s);
    ScreenSaver saver;
    Portal portal;
    PortalRequest request;
};

TEST_F(Inhibition, HoldsOnceAndLetsGoOnce)
{
    serveScreenSaver();
    IdleInhibition inhibition(program);
    inhibition.hold(true);
    inhibition.hold(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !saver.calls.isEmpty(); }));
    inhibition.hold(false);
    inhibition.hold(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return saver.calls.size() == 2; }));
    EXPECT_EQ(saver.calls, (QStringList{u"Inhibit orvanta"_s, u"UnInhibit 77"_s}));
}

TEST_F(Inhibition, ThatWasLetGoBeforeTheAnswerIsLetGoWhenItComes)
{
    serveScreenSaver();
    IdleInhibition inhibition(program);
    inhibition.hold(true);
    inhibition.hold(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return saver.calls.size() == 2; }));
    EXPECT_EQ(saver.calls.last(), u"UnInhibit 77"_s);
}

TEST_F(Inhibition, FallsBackToThePortal)
{
    servePortal();
    IdleInhibition inhibition(program);
    inhibition.hold(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.calls.isEmpty(); }));
    EXPECT_EQ(portal.calls, QStringList{u"Inhibit  8 1"_s});
    inhibition.hold(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return request.closed == 1; }));
}

TEST_F(Inhibition, IsLetGoWithItsOwner)
{
    serveScreenSaver();
    {
        IdleInhibition inhibition(program);
        inhibition.hold(true);
        ASSERT_TRUE(QTest::qWaitFor([&] { return inhibition.isHeld(); }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return saver.calls.size() == 2; }));
}

TEST_F(Inhibition, WithoutAnyServiceNothingIsHeldAndTheLogSaysSo)
{
    const LogCapture log("orvanta.desktop");
    IdleInhibition nobody(program);
    nobody.hold(true);
    EXPECT_TRUE(QTest::qWaitFor([] { return LogCapture::lines().size() == 1; }));
    EXPECT_TRUE(LogCapture::lines().join(u' ').contains(u"no service here keeps"_s));
    EXPECT_FALSE(nobody.isHeld());
}

TEST_F(Inhibition, WithoutABusNothingIsHeldAndTheLogSaysSo)
{
    const LogCapture log("orvanta.desktop");
    IdleInhibition busless(QDBusConnection(u"no such connection"_s));
    busless.hold(true);
    EXPECT_FALSE(busless.isHeld());
    busless.hold(false);
    EXPECT_EQ(LogCapture::lines(),
              QStringList{u"no session bus: no service of the desktop keeps it awake"_s});
}

} // namespace
} // namespace orvanta::test
