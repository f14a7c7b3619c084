// The program on a Wayland desktop that minimises nothing, places every window itself and falls
// asleep by the compositor's own clock.

#include "tests/e2e/support/screen_colours.h"
#include "tests/e2e/support/steered.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

/// A desktop's portal that is still starting: it answers nobody.
class StartingPortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    int asked = 0;

public Q_SLOTS:
    Q_SCRIPTABLE QDBusObjectPath Inhibit(const QString& /*window*/, uint /*flags*/,
                                         const QVariantMap& /*options*/)
    {
        setDelayedReply(true);
        ++asked;
        return {};
    }
};

class TilingDesktop : public Steered
{
protected:
    TilingDesktop()
        : Steered({.windowManager = false, .compositor = u"sway-x11"_s})
    {}

    void playRed()
    {
        const QString lesson = writeClips(file(u"red.vxl"_s), {{media(u"red20.mp4"_s), u"Red"_s}});
        ASSERT_TRUE(program.startAndShow({lesson}));
        ASSERT_TRUE(plays(u"start 1 1 Red"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
        ASSERT_TRUE(isPictureSeen(true));
    }

    bool isPictureSeen(bool seen)
    {
        constexpr int kLeast = 50 * 50;
        return waitFor([&] { return (coloursOf(desktop.screenOfSway()).red > kLeast) == seen; });
    }

    /// The main window's button, by assistive technology: no key and no click is involved.
    void pressButton(const QString& name)
    {
        const auto top = m_bus.program(program.pid());
        const auto button = top ? top->find(u"push button"_s, name) : std::nullopt;
        ASSERT_TRUE(button);
        button->act(u"Press"_s);
    }

    /// A click on its title, which takes the keyboard from the video window.
    void activateMainWindow()
    {
        constexpr QPoint kTitle(200, 30);
        desktop.click(kTitle);
        EXPECT_TRUE(mainWindowGetsKeyboard());
    }

    bool mainWindowGetsKeyboard()
    {
        const auto top = m_bus.program(program.pid());
        return top && waitFor([&] {
                   const auto windows = top->children();
                   return std::ranges::any_of(windows, [this](const Accessible& each) {
                       return each.name() == kMainWindow && each.isActive();
                   });
               });
    }

    AccessibilityBus m_bus{desktop};
};

TEST_F(TilingDesktop, TheVideoWindowComesBackWithAKeyInAWindowThatWasNotMinimised)
{
    playRed();
    controls.call(u"Pause"_s); // its picture stays for as long as this takes
    ASSERT_TRUE(becomes(u"Paused"_s));
    activateMainWindow();
    pressButton(u"Minimize button"_s);
    ASSERT_TRUE(isPictureSeen(false));
    press(Key::K); // the main window fills the screen now and has the keyboard
    EXPECT_TRUE(isPictureSeen(true));
    activateMainWindow();
    pressButton(u"Minimize button"_s);
    ASSERT_TRUE(isPictureSeen(false));
    controls.callRoot(u"Raise"_s);
    EXPECT_TRUE(isPictureSeen(true));
    activateMainWindow();
    pressButton(u"Minimize button"_s);
    ASSERT_TRUE(isPictureSeen(false));
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(isPictureSeen(true));
}

TEST_F(TilingDesktop, TheKeyboardStaysWithTheMainWindowWhenTheVideoWindowAppears)
{
    const QString lesson = writeClips(file(u"red.vxl"_s), {{media(u"red20.mp4"_s), u"Red"_s}});
    ASSERT_TRUE(program.startAndShow());
    activateMainWindow();
    EXPECT_EQ(launchAgain(desktop, home, {lesson}), 0);
    ASSERT_TRUE(becomes(u"Playing"_s));
    controls.call(u"Pause"_s);
    ASSERT_TRUE(isPictureSeen(true));
    EXPECT_TRUE(mainWindowGetsKeyboard());
}

TEST_F(TilingDesktop, TheSessionFallsAsleepWhenNothingPlaysAndNotWhileAClipRuns)
{
    const QString lesson =
        writeClips(file(u"lesson.vxl"_s), {{media(u"video200.mp4"_s), u"Lesson"_s}});
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(becomes(u"Playing"_s));
    const QString asleep = file(u"asleep"_s);
    OwnedProcess clock;
    clock.setProcessEnvironment(desktop.environment());
    clock.start(u"swayidle"_s,
                {u"-C"_s, u"/dev/null"_s, u"timeout"_s, u"1"_s, u"touch "_s + asleep});
    ASSERT_TRUE(clock.waitForStarted());
    const double begin = controls.seconds();
    constexpr double kSeveralTimeouts = 4;
    ASSERT_TRUE(comesBetween(begin + kSeveralTimeouts, kLength));
    EXPECT_FALSE(QFileInfo::exists(asleep));
    EXPECT_TRUE(isPlaying());
    controls.call(u"Pause"_s);
    EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(asleep); }));
}

TEST_F(TilingDesktop, TheCompositorIsToldAtEachPlayAlsoWhileAPortalIsSilent)
{
    StartingPortal portal;
    const QString name = u"desktop"_s;
    QDBusConnection bus = QDBusConnection::connectToBus(desktop.busAddress(), name);
    ASSERT_TRUE(bus.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                   QDBusConnection::ExportScriptableSlots));
    ASSERT_TRUE(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    playRed();
    const auto isSaidTimes = [this](const QString& line, int times) {
        return waitFor([&] { return program.linesMatching(line).size() == times; });
    };
    EXPECT_TRUE(isSaidTimes(u"the compositor keeps the session awake"_s, 1));
    controls.call(u"Pause"_s);
    EXPECT_TRUE(isSaidTimes(u"the compositor may let the session sleep"_s, 1));
    controls.call(u"Play"_s);
    EXPECT_TRUE(isSaidTimes(u"the compositor keeps the session awake"_s, 2));
    EXPECT_EQ(portal.asked, 1);
    QDBusConnection::disconnectFromBus(name);
}

} // namespace orvanta::e2e

#include "tests/e2e/tiling_test.moc"
