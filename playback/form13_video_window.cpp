#include "playback/form13_video_window.h"

#include "core/numbers.h"
#include "platform/screen/pointer_nudge.h"
#include "playback/control_rows.h"
#include "playback/overlay_bar.h"
#include "playback/overlay_picture.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QResizeEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr QSize kFrame(50, 200);        // twips: the window around the control
constexpr QSize kSmallFrame(3100, 450); // twips: the window of a still picture, at least
constexpr int kNudgeMilliseconds = 30000;
constexpr int kSignMilliseconds = 2000;
// Seeks, brakes and changes of clip stand still for a moment; a screen may sleep only after more.
constexpr int kRestMilliseconds = 2000;

static void paintBlack(QWidget& window)
{
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, Qt::black);
    window.setPalette(palette);
    window.setAutoFillBackground(true);
}

Form13::Form13(Form13Services services)
    : m_services(std::move(services)),
      m_control(m_services.control),
      m_keys(m_control, m_mirror, *this, m_services.seek)
{
    buildControls();
    connectHandlers();
}

Form13::~Form13() = default;

void Form13::buildControls()
{
    setWindowTitle(u"Orvanta"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    paintBlack(*this);
    ActiveMovie1 = new VideoSurface(m_control.picture(), this);
    ActiveMovie1->setKeepsLastFrame(); // until the next clip's still picture is read, if any
    Image1 = new QLabel(this);
    Image1->setAlignment(Qt::AlignCenter);
    Image1->hide();
    PictureMenu = new CommandMenu(MenuPlace::VideoWindow, this, m_services.tracks);
    PictureMenu->setStyleSheet(m_services.menuSheet);
    LessonText = new OverlayPicture(this);
    buildBar();
    Sign = new OverlayPicture(this);
    m_signTime.setInterval(kSignMilliseconds);
    m_signTime.setSingleShot(true);
    Timer1.setInterval(kNudgeMilliseconds);
    m_rest.setInterval(kRestMilliseconds);
    m_rest.setSingleShot(true);
    m_size = kSizeWithoutPicture + kFrame;
    nameControls({{this, u"Form13"},
                  {ActiveMovie1, u"ActiveMovie1"},
                  {Image1, u"Image1"},
                  {PictureMenu, u"PictureMenu"},
                  {TracksMenu, u"TracksMenu"},
                  {LessonText, u"LessonText"},
                  {Bar, u"Bar"},
                  {Sign, u"Sign"},
                  {&Timer1, u"Timer1"}});
}

void Form13::connectHandlers()
{
    connect(&m_control, &MediaControl::position, this,
            m_services.boundary([this] { Form13_ActiveMovie1_PositionEvent(); }));
    connect(&m_control, &MediaControl::positionChange, this,
            m_services.boundary([this](double oldSeconds, double newSeconds) {
                Form13_ActiveMovie1_PositionChange(oldSeconds, newSeconds);
            }));
    connect(
        &m_control, &MediaControl::coverRead, this,
        m_services.boundary([this](const QImage& cover) { Form13_ActiveMovie1_CoverRead(cover); }));
    connect(
        &m_control, &MediaControl::openComplete, this,
        m_services.boundary([this](QSize picture) { Form13_ActiveMovie1_OpenComplete(picture); }));
    connect(&m_control, &MediaControl::openFailed, this,
            m_services.boundary([this](const QString&) { Form13_ActiveMovie1_OpenFailed(); }));
    connect(&m_control, &MediaControl::stateChange, this,
            m_services.boundary([this](MediaControl::State oldState, MediaControl::State newState) {
                Form13_ActiveMovie1_StateChange(oldState, newState);
            }));
    connect(&Timer1, &QTimer::timeout, this,
            m_services.boundary([this](auto&&...) { Form13_Timer1_Timer(); }));
    connect(PictureMenu, &CommandMenu::chosen, this,
            m_services.boundary([this](Command command) { choose(command); }));
    connect(PictureMenu, &QMenu::aboutToHide, this, [this] { hidePointerOnWholeScreen(); });
    connect(&m_signTime, &QTimer::timeout, Sign, &OverlayPicture::fadeOut);
    m_keys.whenBookmarkIsMissing([this] { showSign(text(u"Sign.noBookmark")); });
    connect(&m_rest, &QTimer::timeout, this,
            m_services.boundary([this](auto&&...) { letSleep(); }));
}

void Form13::Form13_ActiveMovie1_PositionEvent()
{
    m_mirror.VideoPosition = decimalText(m_control.CurrentPosition());
    m_mirror.VideoPositionUpdated = true;
    if (isBarShown()) {
        showBarTime();
    }
}

/// The program's one and only test for the end of a clip.
void Form13::Form13_ActiveMovie1_PositionChange(double oldSeconds, double newSeconds)
{
    if (looksLikeEnd(oldSeconds, newSeconds, m_control.Duration())) {
        m_mirror.VideoEnded = true;
    }
}

void Form13::Form13_ActiveMovie1_OpenComplete(QSize picture)
{
    m_controlSize = picture.isEmpty() ? kSizeWithoutPicture : picture * kTwipsPerPixel;
    m_size = m_controlSize + kFrame;
    m_textLevel = m_services.textLevel();
    forgetCover();
    m_stillReading.stop();
    Image1->hide();
    if (m_controlSize == kSizeWithoutPicture) {
        showStillPicture();
    } else {
        showClipPicture(picture);
    }
    m_control.Run();
}

void Form13::Form13_ActiveMovie1_CoverRead(const QImage& cover)
{
    m_coverIsComing = false;
    m_cover = cover;
    if (m_control.isReady() && m_controlSize == kSizeWithoutPicture) {
        showStillPicture();
    }
}

void Form13::forgetCover()
{
    m_cover = QImage();
    m_coverAsked = false;
    m_coverIsComing = false;
}

/// The packet's own picture goes before it, so it is not read until it is wanted.
QImage Form13::coverOfClip()
{
    if (!std::exchange(m_coverAsked, true)) {
        m_coverIsComing = m_control.readCover();
    }
    return m_cover;
}

void Form13::Form13_ActiveMovie1_OpenFailed()
{
    hideUnlessOpening();
}

void Form13::Form13_ActiveMovie1_StateChange(int /*oldState*/, int newState)
{
    m_mirror.VideoState = newState;
    if (isBarShown()) {
        refreshBar();
    }
    keepAwakeWhile(newState == MediaControl::Running);
    if (newState == MediaControl::NotLoaded && !m_control.isOpening()) {
        forgetCover();
        moveOutOfSight();
    }
}

/// The nudge and the desktop's own way, both as long as the lesson runs.
void Form13::keepAwakeWhile(bool running)
{
    if (!running) {
        if (Timer1.isActive() && !m_rest.isActive()) {
            m_rest.start();
        }
        return;
    }
    m_rest.stop();
    if (!Timer1.isActive()) {
        Timer1.start();
        m_services.keepAwake(true);
    }
}

void Form13::letSleep()
{
    Timer1.stop();
    m_services.keepAwake(false);
}

void Form13::Form13_Timer1_Timer()
{
    nudgePointer();
}

void Form13::prepareForMedia()
{
    // Between two texts on a ground there is no black.
    ActiveMovie1->setVisible(!hasTextGround());
    moveOutOfSight();
    m_controlSize = kSizeWithoutPicture;
}

// The native window goes a turn of the event loop later, and only when no other clip is being
// opened by then: between two clips with a picture it stays where it is.
void Form13::moveOutOfSight()
{
    m_left = kOutOfSight;
    hideBar();
    QTimer::singleShot(0, this, [this] { hideUnlessOpening(); });
}

void Form13::showWindow(bool show)
{
    m_shownByProgram = show;
    setVisible(show && m_left != kOutOfSight);
}

void Form13::showClipPicture(QSize picture)
{
    ActiveMovie1->show();
    bringIntoSight(picture);
}

void Form13::showStillPicture()
{
    m_stillReading.read(m_stillFile, {}, [this](const QImage& picture) {
        if (m_control.isReady() && m_controlSize == kSizeWithoutPicture) {
            showStill(picture);
        }
    });
}

void Form13::showStill(const QImage& picture)
{
    m_still = picture;
    if (m_still.isNull() && !m_stillFile.isEmpty()) {
        qCInfo(logErrors, "no picture of a kind in use in %ls", qUtf16Printable(m_stillFile));
    }
    if (m_still.isNull()) {
        m_still = coverOfClip();
    }
    if (m_still.isNull() && !hasTextGround()) {
        m_left = kOutOfSight;
        hideUnlessOpening();
        return;
    }
    ActiveMovie1->hide();
    Image1->setVisible(!m_still.isNull());
    const QSize contents = hasTextGround() ? sizeOfTextGround() : m_still.size();
    m_size = kSmallFrame.expandedTo(contents * kTwipsPerPixel);
    bringIntoSight(pixelsOfTwips(m_size));
}

void Form13::bringIntoSight(QSize contents)
{
    setWindowTitle(QFileInfo(m_control.FileName()).completeBaseName());
    m_contents = contents;
    m_left = x() * kTwipsPerPixel;
    applyFullScreen();
    if (!isFillingScreen()) {
        giveSizeOfContents();
    }
    layOutControls();
    m_left = x() * kTwipsPerPixel;
    const bool comesBack = !isVisible();
    setVisible(m_shownByProgram);
    if (comesBack && isFillingScreen()) {
        takeKeyboard();
    }
}

/// The clip's size, shrunk to fit the screen, and there beside the main window.
QSize Form13::sizeOfContents() const
{
    const QSize onScreen = shrunkToFit(m_contents, room().size() - frameSize());
    const QWidget* mainWindow = m_services.mainWindow();
    const bool isBeside = mainWindow != nullptr && mainWindow->isVisible() &&
                          room().intersects(mainWindow->frameGeometry());
    return isBeside ? shrunkToFitBeside(mainWindow->frameGeometry(), onScreen, frameSize(), room())
                    : onScreen;
}

void Form13::giveSizeOfContents()
{
    if (!m_sizedByUser) {
        giveSize(sizeOfContents());
    }
}

void Form13::giveSize(QSize contents)
{
    const QSize whole = contents + frameSize();
    const QWidget* mainWindow = m_services.mainWindow();
    const QRect neighbour = mainWindow != nullptr ? mainWindow->frameGeometry() : QRect();
    const QPoint place = isVisible() ? insideScreen(placeBeforePush(), whole, room())
                                     : placeBeside(neighbour, whole, room());
    m_pushedFrom = isVisible() ? placeBeforePush() : place;
    m_pushedTo = place;
    m_givenSizeBefore = std::exchange(m_givenSize, contents);
    resize(contents);
    if (place != pos()) {
        move(place);
    }
}

/// A large clip pushes the window towards the middle of the screen; a small one after it finds it
/// where it was, unless the user has moved it meanwhile.
QPoint Form13::placeBeforePush() const
{
    return pos() == m_pushedTo ? m_pushedFrom : pos();
}

void Form13::hideUnlessOpening()
{
    if (m_left == kOutOfSight && !m_control.isOpening() && !m_coverIsComing) {
        hide();
    }
}

/// The part of the screen that is free for windows.
QRect Form13::room() const
{
    const QWidget* mainWindow = m_services.mainWindow();
    const QScreen* where = mainWindow != nullptr && !isVisible() ? mainWindow->screen() : screen();
    return where->availableGeometry();
}

/// What the window manager adds around the contents; a guess before it has done so.
QSize Form13::frameSize() const
{
    const QMargins margins =
        windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    if (!margins.isNull()) {
        return {margins.left() + margins.right(), margins.top() + margins.bottom()};
    }
    return {0, style()->pixelMetric(QStyle::PM_TitleBarHeight)};
}

void Form13::resizeEvent(QResizeEvent* event)
{
    // Resizes that the program did not ask for come from the user's hand.
    if (event->spontaneous() && isVisible() && !isFillingScreen() && size() != m_givenSize &&
        size() != m_givenSizeBefore && !m_comesBack) {
        m_sizedByUser = true;
    }
    if (event->spontaneous() && size() != screen()->size()) {
        noteComingBack();
    }
    layOutControls();
}

/// Back in its place, the window takes the size of the clip that is on now.
void Form13::noteComingBack()
{
    if (std::exchange(m_comesBack, false) && !isFillingScreen() && sizeOfContents() != size()) {
        QTimer::singleShot(0, this, [this] { giveSizeOfContents(); });
    }
}

void Form13::layOutControls()
{
    ActiveMovie1->setGeometry(rect());
    Image1->setGeometry(placeOfStill());
    if (!Image1->isHidden()) {
        scaleStillPicture();
    }
    if (isBarShown()) {
        Bar->fitInto(size());
    }
    paintGround();
    showLessonText();
}

/// A small picture keeps its size in a window, but not on the whole screen.
void Form13::scaleStillPicture()
{
    const QSize room = Image1->size() * devicePixelRatioF();
    const QSize pixels = isFillingScreen() ? m_still.size().scaled(room, Qt::KeepAspectRatio)
                                           : shrunkToFit(m_still.size(), room);
    QPixmap picture =
        QPixmap::fromImage(m_still.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(devicePixelRatioF());
    Image1->setPixmap(picture);
}

/// The window manager's close: the clip goes, the window stays the program's to show.
void Form13::closeEvent(QCloseEvent* event)
{
    setFullScreen(false);
    m_control.setFileName(QString());
    moveOutOfSight();
    event->accept();
}

} // namespace orvanta
