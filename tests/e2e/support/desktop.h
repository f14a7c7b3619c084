// A private desktop for one test: display, window manager, session bus, sound.
#pragma once

#include "tests/e2e/support/owned_process.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QProcessEnvironment>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace orvanta::e2e {

struct DesktopOptions
{
    bool windowManager = true;
    bool sound = false; // without it, programs find no sound device at all
    QSize screen = {1280, 800};
    // A Wayland desktop: weston on one of its backends, "headless" or "x11", which shows windows as
    // if they had no opacity; or "sway", without a screen, which blends them over a blue ground,
    // and "sway-x11", with its screen on the display.
    QString compositor = {};
};

/// Nothing in it is shared with the user's session or with other tests, so that tests can run side
/// by side. Check isReady() before use; problem() says what is missing.
class Desktop
{
public:
    explicit Desktop(DesktopOptions options = {});
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    [[nodiscard]] bool isReady() const { return m_problem.isEmpty(); }
    [[nodiscard]] QString problem() const { return m_problem; }

    /// For programs that are to run on this desktop.
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }
    [[nodiscard]] QString busAddress() const;
    /// A folder for the test's own files.
    [[nodiscard]] QString folder() const;

    /// What sway's screen shows now.
    [[nodiscard]] QImage screenOfSway();
    /// Runs a program to its end and returns its standard output.
    QByteArray run(const QString& program, const QStringList& arguments);
    /// The user's hand. Places in pixels of the screen.
    void click(QPoint place);
    void doubleClick(QPoint place);
    /// Presses the left button at the first place, goes through the others and lets go at the last.
    void drag(const QList<QPoint>& places);
    void press(const QString& key); // a key's name: "Return", "ctrl+a"
    void type(const QString& text); // ASCII, and the letters of the keyboard's layouts
    /// The keyboard's layouts: "us", "us,ru".
    void setKeyboard(const QString& layouts);
    /// Presses a key by its place on the keyboard (X11 key code: evdev + 8), whatever it types.
    void pressPlace(int keyCode, bool shift = false);
    void moveMouse(QPoint place);
    void holdButton(bool down); // the left one
    /// Whether the mouse pointer has a picture where it is.
    [[nodiscard]] bool isPointerVisible() const;
    /// Turns the wheel over a place: up for positive notches.
    void turnWheel(QPoint place, int notches);

    /// Title of the window that has the keyboard.
    [[nodiscard]] QString activeWindowTitle();
    /// Gives a window the keyboard; waits until it has it.
    [[nodiscard]] bool activate(const QString& title);
    /// Closes it by the window manager, as its frame's button does, as soon as that knows it.
    [[nodiscard]] bool closeWindow(const QString& title);
    /// Gives its contents a size by the window manager, as a hand on its edge does.
    [[nodiscard]] bool resizeWindow(const QString& title, QSize size);
    /// Where the contents of the window with exactly this title are; empty while it is not shown.
    [[nodiscard]] QRect placeOf(const QString& title);
    [[nodiscard]] QSize screenSize() const { return m_screen; }
    /// How many windows with exactly this title can be seen.
    [[nodiscard]] int visibleWindows(const QString& title);
    /// The windows that can be seen, by the numbers of the display, menus among them.
    [[nodiscard]] QStringList windowsOfPrograms();
    /// Pixels of the screen; nothing for a window that is gone.
    [[nodiscard]] QRect placeOfWindow(const QString& window);
    /// Whether the contents of a window that can be seen lie exactly there.
    [[nodiscard]] bool showsWindowAt(QRect place);
    /// How many menus are dropped down, submenus among them. Only under a window manager.
    [[nodiscard]] int openMenus();
    /// The name of the sound device whose output can be listened to.
    [[nodiscard]] static QString soundMonitor();

private:
    void makeFolders();
    bool startDisplay();
    bool startBus();
    bool startWindowManager();
    bool startCompositor(const QString& name);
    bool startWeston(const QString& backend);
    bool startSway(const QString& backend);
    void useWayland(const QString& socket);
    [[nodiscard]] QString managedWindow(const QString& title);
    bool askWindowManager(const QString& title, const QStringList& request);
    bool startSound();
    [[nodiscard]] QByteArrayList visibleWindowIds(const QStringList& search);
    std::unique_ptr<OwnedProcess> launch(const QString& program, const QStringList& arguments);
    bool fail(const QString& what);

    QTemporaryDir m_folder;
    QSize m_screen;
    QProcessEnvironment m_environment;
    QString m_problem;
    std::unique_ptr<OwnedProcess> m_display;
    std::unique_ptr<OwnedProcess> m_bus;
    std::unique_ptr<OwnedProcess> m_windowManager;
    std::unique_ptr<OwnedProcess> m_compositor;
    std::unique_ptr<OwnedProcess> m_sound;
};

} // namespace orvanta::e2e
