// The video window's full-screen mode, keys and mouse.
#include "platform/screen/display_system.h"
#include "platform/screen/window_stacking.h"
#include "playback/form13_video_window.h"
#include "playback/typed_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cstdlib>

namespace orvanta {

void Form13::setFullScreen(bool on)
{
    if (m_fullScreen == on) {
        return;
    }
    m_fullScreen = on;
    applyFullScreen();
    Q_EMIT fullScreenChanged(on);
}

bool Form13::isFillingScreen() const
{
    return windowState().testFlag(Qt::WindowFullScreen);
}

/// Only a picture in sight fills the screen, moving or still; without one there is nothing to see.
void Form13::applyFullScreen()
{
    const bool wanted = m_fullScreen && m_left != kOutOfSight;
    if (wanted && !isFillingScreen()) {
        fillScreen();
    } else if (!wanted && isFillingScreen()) {
        leaveScreen();
    }
}

void Form13::fillScreen()
{
    m_hasPlaceBefore = isVisible();
    setWindowState(windowState() | Qt::WindowFullScreen);
    hidePointerOnWholeScreen();
    takeKeyboard();
}

// The keys of this window must work at once, and no other window may stand before the picture; but
// a dialog that waits for an answer keeps the keyboard.
void Form13::takeKeyboard()
{
    if (isVisible() && QApplication::activeModalWidget() == nullptr) {
        bringToFront(windowHandle());
    }
}

void Form13::showEvent(QShowEvent* event)
{
    m_shown.start();
    QWidget::showEvent(event);
}

void Form13::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        giveKeyboardBack();
    }
    QWidget::changeEvent(event);
}

/// It appears without asking for the keyboard. Where it is given that all the same, the main window
/// asks for it; later the user has given it.
void Form13::giveKeyboardBack()
{
    constexpr int kJustNowMs = 5000; // of a busy machine
    const QWidget* mainWindow = m_services.mainWindow();
    if (m_asksForMainWindow) {
        return;
    }
    if (m_shown.isValid() && !m_shown.hasExpired(kJustNowMs) && appearingTakesKeyboard() &&
        !isFillingScreen() && mainWindow != nullptr && mainWindow->isVisible()) {
        m_asksForMainWindow = true;
        constexpr int kTimes = 10;
        QTimer::singleShot(0, this, [this] { askForMainWindow(kTimes); });
    } else {
        m_shown.invalidate();
    }
}

/// The toolkit asks for this window once more while it takes over, and on a busy machine not at
/// once: the last to ask has it. A key or a click here ends the asking.
void Form13::askForMainWindow(int times)
{
    constexpr int kAgainMs = 200;
    const QWidget* mainWindow = m_services.mainWindow();
    if (!m_shown.isValid() || isFillingScreen() || times == 0 || mainWindow == nullptr) {
        m_shown.invalidate();
        m_asksForMainWindow = false;
        return;
    }
    if (isActiveWindow()) {
        bringToFront(mainWindow->windowHandle());
    }
    QTimer::singleShot(kAgainMs, this, [this, times] { askForMainWindow(times - 1); });
}

void Form13::leaveScreen()
{
    unsetCursor();
    const bool hadFocus = isActiveWindow();
    // The window manager first puts the window back where it stood; a size given now would come
    // with the screen's corner as its place.
    m_comesBack = m_hasPlaceBefore;
    setWindowState(windowState() & ~Qt::WindowFullScreen);
    if (!m_hasPlaceBefore && m_left != kOutOfSight) {
        giveSizeOfContents();
    }
    const QWidget* mainWindow = m_services.mainWindow();
    if (hadFocus && mainWindow != nullptr && mainWindow->isVisible()) {
        bringToFront(mainWindow->windowHandle());
    }
}

void Form13::keyPressEvent(QKeyEvent* event)
{
    m_shown.invalidate();
    m_services.boundary([&] {
        doByHand([&] {
            const auto command = namedCommand(*event);
            if (!command || !carryOut(*command)) {
                Form13_Form_KeyPress(typedCharacter(*event));
            }
        });
    })();
    event->accept();
}

/// Capital letters are no keys here.
void Form13::Form13_Form_KeyPress(QChar typed)
{
    if (const auto command = videoWindowLetter(typed)) {
        (void)carryOut(*command);
    }
}

bool Form13::carryOut(Command command)
{
    if (command == Command::LeaveFullScreen) {
        Form13_ActiveMovie1_Escape();
        return true;
    }
    if (command == Command::NextTextLevel) {
        nextTextLevel();
        return true;
    }
    if (command == Command::ShowMenu) {
        openMenu(mapToGlobal(rect().center()));
        return true;
    }
    return m_keys.press(command) || m_services.carryOut(command);
}

void Form13::choose(Command command)
{
    (void)carryOut(command);
    m_keys.serveRequest();
}

void Form13::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    m_services.boundary(
        [&] { openMenu(byKey ? mapToGlobal(rect().center()) : event->globalPos()); })();
}

// The pointer can be seen as long as there is something to point at.
void Form13::openMenu(QPoint place)
{
    unsetCursor();
    PictureMenu->setLanguage(m_services.language());
    PictureMenu->open(place, commandFacts());
}

void Form13::hidePointerOnWholeScreen()
{
    if (isFillingScreen()) {
        setCursor(Qt::BlankCursor);
    }
}

CommandFacts Form13::commandFacts() const
{
    const MediaControl::State state = m_control.CurrentState();
    const Practice practice = m_services.practice();
    return {
        .hasEntries = m_services.hasEntries(),
        .loaded = state != MediaControl::NotLoaded,
        .canStop = state == MediaControl::Running || state == MediaControl::Paused,
        .hasPlace = true,
        // The key, too, goes there while the clip runs.
        .hasBookmark = state == MediaControl::Running && !m_mirror.VideoBookmark.isEmpty(),
        .fullScreen = m_fullScreen,
        .repeatsLine = practice.isEndless(),
        .speedIsNormal = practice.speed == Practice().speed,
    };
}

void Form13::mousePressEvent(QMouseEvent* event)
{
    m_shown.invalidate();
    if (event->button() == Qt::MiddleButton) {
        m_services.boundary([this] { doByHand([this] { m_keys.togglePlay(); }); })();
    }
}

/// As the keys + and -. Fine wheels send parts of a step.
void Form13::wheelEvent(QWheelEvent* event)
{
    constexpr int kStep = QWheelEvent::DefaultDeltasPerStep;
    m_wheel += event->angleDelta().y();
    const int steps = m_wheel / kStep;
    m_wheel -= steps * kStep;
    m_services.boundary([&] {
        doByHand([&] {
            for (int i = 0; i < std::abs(steps); ++i) {
                Form13_Form_KeyPress(steps > 0 ? u'+' : u'-');
            }
        });
    })();
    event->accept();
}

void Form13::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_services.boundary([this] { Form13_ActiveMovie1_DblClick(); })();
    }
}

void Form13::Form13_ActiveMovie1_DblClick()
{
    m_keys.toggleFullScreen();
    m_mirror.VideoState = m_control.CurrentState();
}

void Form13::Form13_ActiveMovie1_Escape()
{
    m_keys.leaveFullScreen();
}

} // namespace orvanta
