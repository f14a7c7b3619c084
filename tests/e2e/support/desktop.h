// A private desktop for one test: display, window manager, session bus, sound.
#pragma once

#include "tests/e2e/support/owned_process.h"

#include <QPoint>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>

namespace orvanta::e2e {

struct DesktopOptions
{
    bool windowManager = true;
    bool sound = false; // without it, programs find no sound device at all
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

    /// Runs a program to its end and returns its standard output.
    QByteArray run(const QString& program, const QStringList& arguments);
    /// The user's hand. Places in pixels of the screen.
    void click(QPoint place);
    void doubleClick(QPoint place);
    void press(const QString& key); // a key's name: "Return", "ctrl+a"
    void type(const QString& text); // ASCII
    /// Turns the wheel over a place: up for positive notches.
    void turnWheel(QPoint place, int notches);

    /// Title of the window that has the keyboard.
    [[nodiscard]] QString activeWindowTitle();
    /// How many windows with exactly this title can be seen.
    [[nodiscard]] int visibleWindows(const QString& title);
    /// The name of the sound device whose output can be listened to.
    [[nodiscard]] static QString soundMonitor();

private:
    void makeFolders();
    bool startDisplay();
    bool startBus();
    bool startWindowManager();
    bool startSound();
    std::unique_ptr<OwnedProcess> launch(const QString& program, const QStringList& arguments);
    bool fail(const QString& what);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_problem;
    std::unique_ptr<OwnedProcess> m_display;
    std::unique_ptr<OwnedProcess> m_bus;
    std::unique_ptr<OwnedProcess> m_windowManager;
    std::unique_ptr<OwnedProcess> m_sound;
};

} // namespace orvanta::e2e
