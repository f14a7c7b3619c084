// The desktop's choice between light and dark, told by a portal of the test's own on a private bus.
#include "platform/screen/colour_scheme.h"
#include "tests/platform/screen/portal_settings.h"
#include "tests/support/log_capture.h"
#include "tests/support/private_bus.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static QColor windowColour()
{
    return QApplication::palette().color(QPalette::Window);
}

static bool becomesDark()
{
    return QTest::qWaitFor([] { return windowColour().lightness() < 100; });
}

static bool becomesLight()
{
    return QTest::qWaitFor([] { return windowColour().lightness() > 150; });
}

namespace {

constexpr uint kNoPreference = 0;
constexpr uint kDark = 1;
constexpr uint kLight = 2;

class ChangeCounter : public QObject
{
public:
    int count = 0;

    ChangeCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
            ++count;
        }
        return false;
    }
};

class Colours : public testing::Test
{
protected:
    ~Colours() override { QApplication::setPalette(m_before); }

    void servePortal()
    {
        ASSERT_TRUE(m_desktop.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                             QDBusConnection::ExportScriptableSlots));
        ASSERT_TRUE(m_desktop.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    PrivateBus m_bus;
    QDBusConnection m_desktop = m_bus.connection(u"desktop"_s);
    QDBusConnection program = m_bus.connection(u"program"_s);
    PortalSettings portal{m_desktop};

private:
    QPalette m_before = QApplication::palette();
};

TEST_F(Colours, AreDarkWhereTheDesktopAlreadyIs)
{
    portal.scheme = kDark;
    servePortal();
    const ColourScheme scheme(program);
    EXPECT_TRUE(becomesDark());
}

TEST_F(Colours, FollowTheDesktopWhileWindowsAreOpenAndComeBackAsTheyWere)
{
    const QColor before = windowColour();
    QWidget window;
    window.show();
    servePortal();
    const ColourScheme scheme(program);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.reads == 1; }));
    portal.choose(kDark);
    ASSERT_TRUE(becomesDark());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return window.palette().color(QPalette::Window).lightness() < 100; }));
    portal.choose(kNoPreference);
    ASSERT_TRUE(becomesLight());
    EXPECT_EQ(windowColour(), before);
    portal.choose(kDark);
    ASSERT_TRUE(becomesDark());
    portal.choose(kLight);
    ASSERT_TRUE(becomesLight());
    EXPECT_EQ(windowColour(), before);
}

TEST_F(Colours, OfADarkToolkitBecomeLightOnALightDesktop)
{
    QApplication::setPalette(QPalette(QColor(30, 40, 50)));
    portal.scheme = kLight;
    servePortal();
    const ColourScheme scheme(program);
    ASSERT_TRUE(becomesLight());
    portal.choose(kDark);
    ASSERT_TRUE(becomesDark());
    EXPECT_EQ(windowColour(), QColor(30, 40, 50)); // the toolkit's own
}

TEST_F(Colours, OfAToolkitThatAgreesAreLeftAlone)
{
    QApplication::setPalette(QPalette(QColor(30, 40, 50)));
    servePortal();
    const ColourScheme scheme(program);
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.reads == 1; }));
    portal.choose(kLight);
    ASSERT_TRUE(becomesLight());
    portal.choose(kDark);
    ASSERT_TRUE(QTest::qWaitFor([] { return windowColour() == QColor(30, 40, 50); }));
}

TEST_F(Colours, FollowAPortalThatComesLater)
{
    const ColourScheme scheme(program);
    portal.scheme = kDark;
    servePortal();
    EXPECT_TRUE(becomesDark());
}

TEST_F(Colours, OfOtherSettingsAreNoChoice)
{
    servePortal();
    const ColourScheme scheme(program);
    portal.choose(kDark);
    ASSERT_TRUE(becomesDark());
    const ChangeCounter changes;
    portal.tell(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, kLight);
    portal.choose(kDark);
    portal.choose(kNoPreference); // heard last
    ASSERT_TRUE(becomesLight());
    EXPECT_EQ(changes.count, 1);
}

TEST_F(Colours, StayWhereNoPortalIs)
{
    const QPalette before = QApplication::palette();
    const ColourScheme scheme(QDBusConnection(u"there is no such bus"_s));
    QEvent theme(QEvent::ThemeChange);
    QWidget window;
    QApplication::sendEvent(&window, &theme);
    EXPECT_EQ(QApplication::palette(), before);
}

/// A bus that can start a portal: one that leaves a file, and fails.
class StartedPortal : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        QDir().mkpath(m_folder.filePath(u"dbus-1/services"_s));
        QFile service(m_folder.filePath(u"dbus-1/services/portal.service"_s));
        ASSERT_TRUE(service.open(QIODevice::WriteOnly));
        service.write(
            "[D-BUS Service]\nName=org.freedesktop.portal.Desktop\nExec=/bin/sh -c \"touch " +
            QFile::encodeName(m_folder.filePath(u"started"_s)) + "; exit 1\"\n");
        service.close();
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path()));
        qputenv("XDG_CURRENT_DESKTOP", GetParam());
    }

    void TearDown() override
    {
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    [[nodiscard]] bool isStarted() const { return QFile::exists(m_folder.filePath(u"started"_s)); }

private:
    QTemporaryDir m_folder;
};

TEST_P(StartedPortal, IsAskedForInPlasmaAlone)
{
    const LogCapture log("orvanta.desktop");
    PrivateBus bus;
    const ColourScheme scheme(bus.connection(u"program"_s));
    // Where it is started, the answer waits for that.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !LogCapture::lines().filter(u"no portal says which colours"_s).isEmpty(); }));
    EXPECT_EQ(isStarted(), QByteArray(GetParam()) == "KDE");
}

INSTANTIATE_TEST_SUITE_P(Desktops, StartedPortal, testing::Values("KDE", "XFCE"));

} // namespace

} // namespace orvanta::test
