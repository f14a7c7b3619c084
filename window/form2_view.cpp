#include "core/paths.h"
#include "platform/screen/busy_cursor.h"
#include "platform/screen/window_basics.h"
#include "platform/screen/window_stacking.h"
#include "playback/announcement.h"
#include "window/clip_line.h"
#include "window/editing_mode.h"
#include "window/form2_main_window.h"
#include "window/missing_clips.h"
#include "window/playlist_list.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

namespace orvanta {

using namespace Qt::StringLiterals;

bool Form2::isWindowNormal() const
{
    return !isVisible() || !(isMinimized() || m_minimiseRequested);
}

void Form2::setCurrentTime(const QString& text)
{
    Label1->setText(text);
}

void Form2::setClipLength(const QString& text)
{
    Label2->setText(text);
}

void Form2::setFindText(const QString& text)
{
    Text1->setText(text);
}

void Form2::setClipText(const QString& text)
{
    Text2->showText(text);
}

void Form2::moveSlider(Int16 percent)
{
    Slider1->setValue(percent.value());
}

void Form2::setVolumeSlider(Int16 value)
{
    Slider2->setValue(value.value());
}

void Form2::showTransport(const TransportLooks& looks)
{
    if (looks.playSwapped != m_looks.playSwapped) {
        exchangePictures(*Image5, *Image15, *Image20);
    }
    if (looks.pauseSwapped != m_looks.pauseSwapped) {
        exchangePictures(*Image3, *Image17, *Image20);
    }
    const bool playHadFocus = Image5->hasFocus();
    const bool pauseHadFocus = Image3->hasFocus();
    Image5->setEnabled(looks.playEnabled);
    Image3->setEnabled(looks.pauseEnabled);
    // A disabled button loses the focus to some neighbour; its counterpart is what Space expects.
    if (playHadFocus && !looks.playEnabled) {
        Image3->setFocus();
    } else if (pauseHadFocus && !looks.pauseEnabled) {
        Image5->setFocus();
    }
    m_looks = looks;
}

void Form2::showPlaying(const PlayingPlace& place)
{
    List1->showPlaying(place);
    sayPlaying(place);
}

/// Once for each line.
void Form2::sayPlaying(const PlayingPlace& place)
{
    const bool isNew = place.packet != m_announced.packet || place.clip != m_announced.clip;
    if (place.sign != PlayingSign::Playing || !isNew) {
        return;
    }
    m_announced = place;
    sayLine(headerLineOf(place.packet) + place.clip.value());
}

void Form2::sayLine(int line)
{
    const QString words = List1->spokenLine(line);
    if (!words.isEmpty() && !List1->hasFocus()) {
        m_announcement->say(words);
    }
}

void Form2::RebuildTree()
{
    m_announced = {};
    List1->setLines(treeLines(m_services.module.playlist));
    showStartPage();
    m_editing->playlistShown();
    m_missingClips->playlistShown();
}

void Form2::clearList()
{
    List1->setLines({});
    showStartPage();
    m_editing->playlistShown();
    m_missingClips->playlistShown();
}

int Form2::headerLineOf(Int16 p) const
{
    return headerLine(List1->lines(), p);
}

int Form2::lineCount() const
{
    return static_cast<int>(List1->lines().size());
}

void Form2::setListIndex(int line)
{
    List1->setCursorLine(line);
}

TreePlace Form2::cursorPlace() const
{
    const int line = List1->cursorLine();
    return line < 0 ? TreePlace{} : placeOfLine(List1->lines(), line);
}

bool Form2::isLineChecked(int line) const
{
    return List1->isLineChecked(line);
}

void Form2::checkLine(int line)
{
    List1->checkLine(line);
}

void Form2::showMainWindow()
{
    show();
}

void Form2::hideMainWindow()
{
    keepSize();
    hide();
}

void Form2::enableTimer2(int line)
{
    m_lineToMark = line;
    Timer2.start();
}

void Form2::enableTimer3()
{
    Timer3.start();
}

void Form2::bringMainWindowToFront()
{
    raiseFor({});
}

void Form2::raiseFor(const QString& activationToken)
{
    m_minimiseRequested = false;
    if (isMinimized()) {
        showNormal();
    }
    bringToFront(windowHandle(), activationToken);
}

void Form2::showBookmarkSign()
{
    m_services.showBookmarkSign();
}

bool Form2::isModalWindowOpen() const
{
    return QApplication::activeModalWidget() != nullptr;
}

// What it paints are lines and texts of its own, never the playlist that the work changes.
void Form2::runBusy(const std::function<void()>& work)
{
    runWithBusyCursor(work, [this] { repaint(); });
}

// As the window manager closes them. One that refuses goes with the program.
void Form2::cancelModalWindows()
{
    m_services.closingBegins();
    const QWidget* refuses = nullptr;
    for (QWidget* window = QApplication::activeModalWidget();
         window != nullptr && window != refuses; window = QApplication::activeModalWidget()) {
        refuses = window;
        window->close();
    }
}

void Form2::unloadAll()
{
    m_unloading = true;
    m_editing->end();
    keepSize();
    for (QTimer* timer : {&Timer1, &Timer2, &Timer3}) {
        timer->stop();
    }
    close();
    m_services.unloadOtherForms();
}

bool Form2::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        m_minimiseRequested = false;
        m_services.boundary([this] {
            Form2_Form_Activate();
            Form2_Form_Paint();
        })();
    } else if (event->type() == QEvent::WindowStateChange) {
        noteWindowState();
    }
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show) {
        m_roundedCorners = areWindowsBlended();
        update();
    }
    return QWidget::event(event);
}

Settings Form2::platformSettings() const
{
    return Settings(programFile(m_services.module.ApplicationFolder, u"\\platform.ini"_s));
}

// A maximised window has the size that it goes back to.
void Form2::keepSize()
{
    const QSize now = isMaximized() || isFullScreen() ? normalGeometry().size() : size();
    if (now != m_keptSize && now.isValid()) {
        m_keptSize = now;
        platformSettings().setWindowSize(now);
    }
}

// Where the state is reported, a window that is restored without being activated is normal again.
void Form2::noteWindowState()
{
    const bool reported = !QGuiApplication::platformName().startsWith(u"wayland"_s);
    if (reported && !isMinimized()) {
        m_minimiseRequested = false;
    }
}

/// A compositor that minimises nothing leaves the window in the user's hands. The pointer's way
/// alone says nothing: it goes on for a moment over a window that is being minimised.
void Form2::noteInput(const QObject& watched, const QEvent& event)
{
    const bool isInput = event.type() == QEvent::KeyPress ||
                         event.type() == QEvent::MouseButtonPress || event.type() == QEvent::Wheel;
    const bool counts = isInput && !isWindowNormal() && watched.isWidgetType();
    if (counts && static_cast<const QWidget&>(watched).window() == this) {
        m_minimiseRequested = false;
        setWindowState(windowState() & ~Qt::WindowMinimized); // as the toolkit takes it for granted
    }
}

// The window manager's close is the Close button. It runs from the queue: it may end the program,
// and the window must not go while its own event is on the way.
void Form2::closeEvent(QCloseEvent* event)
{
    if (m_unloading) {
        event->accept();
        return;
    }
    event->ignore();
    Q_EMIT closeAsked();
}

void Form2::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(skin::kLine, 1));
    painter.setBrush(skin::kSurface);
    const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool rounded = m_roundedCorners && !isMaximized() && !isFullScreen();
    if (!rounded) {
        painter.fillRect(rect(), skin::kSurface);
    }
    const qreal radius = rounded ? skin::kWindowRadius : 0;
    painter.drawRoundedRect(edge, radius, radius);
}

} // namespace orvanta
