// The video window's bar: when it shows, what it shows, what its buttons do.
#include "playback/form13_video_window.h"
#include "playback/overlay_bar.h"
#include "playback/overlay_button.h"
#include "playback/overlay_picture.h"
#include "playback/overlay_track.h"
#include "playback/overlay_wait_ring.h"
#include "playback/practice_texts.h"
#include "playback/track_controls.h"
#include "playback/track_menus.h"

#include <QMouseEvent>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kBarMilliseconds = 2000;
// The nudge that keeps the screen awake, and a table that is touched, move the pointer a little.
constexpr int kRealMove = 4; // pixels

void Form13::buildBar()
{
    Bar = new PictureBar(this);
    m_barTime.setInterval(kBarMilliseconds);
    connect(&m_barTime, &QTimer::timeout, this, [this] { hideBarUnlessInUse(); });
    for (QWidget* part : {static_cast<QWidget*>(this), static_cast<QWidget*>(ActiveMovie1),
                          static_cast<QWidget*>(Image1)}) {
        part->setMouseTracking(true);
    }
    connect(Bar->track, &BarTrack::dropped, this, m_services.boundary([this](double seconds) {
        m_services.seek(seconds);
        showBarTime();
    }));
    connectBarButtons();
    buildTracksMenu();
}

/// The same submenus as in the menu of the window, above their button.
void Form13::buildTracksMenu()
{
    TracksMenu = new QMenu(this);
    TracksMenu->setStyleSheet(m_services.menuSheet);
    m_trackMenus = new TrackMenus(*TracksMenu, m_services.tracks);
    connect(TracksMenu, &QMenu::aboutToHide, this, [this] { hidePointerOnWholeScreen(); });
    connect(Bar->tracks, &QAbstractButton::clicked, this,
            m_services.boundary([this](bool) { openTracksMenu(); }));
    if (m_services.tracks != nullptr) {
        connect(m_services.tracks, &TrackControls::changed, this, [this] {
            if (isBarShown()) {
                refreshBar();
            }
        });
    }
}

void Form13::openTracksMenu()
{
    unsetCursor();
    m_trackMenus->setLanguage(m_services.language());
    m_trackMenus->refresh();
    const QPoint above(0, -TracksMenu->sizeHint().height());
    TracksMenu->popup(Bar->tracks->mapToGlobal(above));
}

void Form13::connectBarButtons()
{
    const auto connectButton = [this](BarButton* button, const std::function<void()>& action) {
        connect(button, &QAbstractButton::clicked, this, m_services.boundary([this, action](bool) {
            doByHand(action);
            refreshBar();
        }));
    };
    connectButton(Bar->previous, m_services.bar.previousLine);
    connectButton(Bar->play, [this] { m_keys.togglePlay(); });
    connectButton(Bar->next, m_services.bar.nextLine);
    connectButton(Bar->again, m_services.bar.lineAgain);
    connectButton(Bar->repeat, m_services.bar.toggleRepeat);
    connect(Bar->ring, &WaitRing::pressed, this,
            m_services.boundary([this] { doByHand(m_services.bar.goOn); }));
    connectButton(Bar->text, [this] { nextTextLevel(); });
    connectButton(Bar->fullScreen, [this] { m_keys.toggleFullScreen(); });
}

void Form13::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->globalPosition().toPoint();
    if ((place - m_restingPointer).manhattanLength() < kRealMove) {
        return;
    }
    m_restingPointer = place;
    showBar();
    if (isBarShown()) {
        unsetCursor();
    }
}

void Form13::leaveEvent(QEvent* /*event*/)
{
    if (!Bar->track->isHeld()) {
        hideBar();
    }
}

bool Form13::isBarShown() const
{
    return !Bar->isHidden();
}

void Form13::showBar()
{
    if (!isVisible() || m_left == kOutOfSight || !m_control.isReady() ||
        !PictureBar::fits(size())) {
        return;
    }
    m_barTime.start();
    if (!isBarShown()) {
        Bar->setTips(m_services.language());
        refreshBar();
        Bar->fitInto(size());
        Bar->show();
        Bar->raise();
        placeLessonText();
    }
}

void Form13::hideBar()
{
    m_barTime.stop();
    if (!isBarShown()) {
        return;
    }
    Bar->bubble->vanish();
    Bar->hide();
    placeLessonText();
    if (isFillingScreen()) {
        setCursor(Qt::BlankCursor);
    }
}

void Form13::hideBarUnlessInUse()
{
    if (!Bar->underMouse() && !Bar->track->isHeld()) {
        hideBar();
    }
}

void Form13::refreshBar()
{
    const BarPorts& ports = m_services.bar;
    const bool running = m_control.CurrentState() == MediaControl::Running;
    Bar->play->setDrawing(running ? bar_drawings::kPause : bar_drawings::kPlay);
    Bar->previous->setVisible(ports.previousLine != nullptr);
    Bar->next->setVisible(ports.nextLine != nullptr);
    Bar->repeat->setVisible(ports.toggleRepeat != nullptr);
    Bar->repeat->setChecked(ports.isRepeating && ports.isRepeating());
    const QString repeated = ports.repeatText ? ports.repeatText() : QString();
    Bar->repeatText->setVisible(!repeated.isEmpty());
    Bar->repeatText->setText(repeated);
    Bar->again->setVisible(ports.lineAgain != nullptr);
    const double speed = ports.speed ? ports.speed() : 1;
    Bar->speed->setVisible(speed != 1);
    Bar->speed->setText(speedText(speed * 100));
    Bar->text->setChecked(m_textLevel != TextLevel::Off);
    Bar->tracks->setVisible(m_services.tracks != nullptr && PictureBar::fitsTracks(size()) &&
                            TrackMenus::isChoice(*m_services.tracks));
    Bar->fullScreen->setChecked(m_fullScreen);
    Bar->track->setMarks(ports.marks ? ports.marks() : std::vector<LessonMark>());
    showBarTime();
}

void Form13::showWait(double seconds)
{
    Bar->ring->begin(seconds);
    showBar();
}

void Form13::showWaitOver()
{
    Bar->ring->end();
}

void Form13::showBarTime()
{
    Bar->showTime(m_control.CurrentPosition(), m_control.Duration());
}

} // namespace orvanta
