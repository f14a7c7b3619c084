#include "playback/overlay_bar.h"

#include "playback/clock_text.h"
#include "playback/commands.h"
#include "playback/overlay_button.h"
#include "playback/overlay_picture.h"
#include "playback/overlay_track.h"
#include "playback/overlay_wait_ring.h"
#include "playback/picture_look.h"
#include "playback/sign_picture.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

// Logical pixels.
constexpr int kBarEdge = 24;
constexpr int kNarrowEdge = 8;
constexpr int kAboveTrack = 36; // room for the bubble
constexpr int kBetweenRows = 12;
constexpr double kAboveTexts = 0.28; // the part of the ground that lies above the times
constexpr int kGap = 8;
constexpr int kTimeFont = 13;
constexpr int kBubbleFont = 12;
constexpr int kNarrow = 560; // a window of this width has narrow edges
constexpr int kWidthWithTracks = 320;
constexpr QSize kSmallestWindow(280, 170);

static QLabel* newLabel(QWidget* parent, const QColor& colour, const QFont& font)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    return label;
}

/// Digits of one width, so that a running time does not tremble.
static QFont timeFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(kTimeFont);
    return font;
}

static QFont wordFont(const QWidget& widget)
{
    QFont font = widget.font();
    font.setPixelSize(kTimeFont);
    return font;
}

PictureBar::PictureBar(QWidget* parent)
    : QWidget(parent),
      position(newLabel(this, look::kText, timeFont())),
      track(new BarTrack(this)),
      length(newLabel(this, look::kTextSoft, timeFont())),
      previous(new BarButton(bar_drawings::kPrevious, BarButton::Ordinary, this)),
      play(new BarButton(bar_drawings::kPlay, BarButton::Principal, this)),
      next(new BarButton(bar_drawings::kNext, BarButton::Ordinary, this)),
      again(new BarButton(bar_drawings::kAgain, BarButton::Ordinary, this)),
      repeat(new BarButton(bar_drawings::kRepeat, BarButton::Ordinary, this)),
      repeatText(newLabel(this, look::kText, wordFont(*this))),
      ring(new WaitRing(TextLanguage::English, this)),
      speed(newLabel(this, look::kAccentLight, wordFont(*this))),
      text(new BarButton(bar_drawings::kText, BarButton::Ordinary, this)),
      tracks(new BarButton(bar_drawings::kTracks, BarButton::Ordinary, this)),
      fullScreen(new BarButton(bar_drawings::kFullScreen, BarButton::Ordinary, this)),
      bubble(new OverlayPicture(this))
{
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setCursor(Qt::ArrowCursor);
    repeat->setCheckable(true);
    speed->setStyleSheet(
        u"background: %1; border-radius: 12px; padding: 4px 12px"_s.arg(look::kAccentFaint.name()));
    text->setCheckable(true);
    fullScreen->setCheckable(true);
    nameParts();
    layOut();
    hide();
    connect(track, &BarTrack::dragged, this, &PictureBar::showPosition);
    connect(track, &BarTrack::hovered, this, &PictureBar::showBubble);
    connect(track, &BarTrack::left, bubble, &OverlayPicture::vanish);
}

void PictureBar::nameParts()
{
    const std::initializer_list<std::pair<QWidget*, QStringView>> parts = {
        {position, u"position"}, {track, u"track"},   {length, u"length"},
        {previous, u"previous"}, {play, u"play"},     {next, u"next"},
        {again, u"again"},       {ring, u"ring"},     {repeat, u"repeat"},
        {text, u"text"},         {tracks, u"tracks"}, {fullScreen, u"fullScreen"},
        {repeatText, u"times"},  {speed, u"speed"},   {bubble, u"bubble"}};
    for (const auto& [part, name] : parts) {
        part->setObjectName(u"Bar."_s + name.toString());
    }
}

void PictureBar::layOut()
{
    auto* times = new QHBoxLayout;
    times->setSpacing(kGap);
    times->addWidget(position);
    times->addWidget(track, 1);
    times->addWidget(length);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kGap);
    for (QWidget* part : std::initializer_list<QWidget*>{previous, play, next, again, repeat,
                                                         repeatText, ring, speed}) {
        buttons->addWidget(part, 0, Qt::AlignVCenter);
    }
    buttons->addStretch(1);
    buttons->addWidget(text);
    buttons->addWidget(tracks);
    buttons->addWidget(fullScreen);
    auto* rows = new QVBoxLayout(this);
    rows->setSpacing(kBetweenRows);
    rows->addLayout(times);
    rows->addLayout(buttons);
}

void PictureBar::setTips(TextLanguage language)
{
    const auto tip = [language](const char16_t* name) {
        return interfaceText(u"Form13", name, language);
    };
    const auto tell = [&](BarButton* button, const char16_t* name, Command command) {
        button->setTip(tip(name), shownKey(rowOf(command)));
    };
    tell(previous, u"Bar.previous", Command::PreviousLine);
    tell(play, u"Bar.play", Command::TogglePlay);
    tell(next, u"Bar.next", Command::NextLine);
    tell(again, u"Bar.again", Command::LineAgain);
    tell(repeat, u"Bar.repeat", Command::RepeatLine);
    tell(text, u"Bar.text", Command::NextTextLevel);
    tracks->setTip(tip(u"Bar.tracks"), {});
    tell(fullScreen, u"Bar.fullScreen", Command::ToggleFullScreen);
    ring->setLanguage(language);
    speed->setToolTip(tip(u"Bar.speed"));
    track->setAccessibleName(tip(u"Bar.track"));
}

bool PictureBar::fits(QSize window)
{
    return window.width() >= kSmallestWindow.width() && window.height() >= kSmallestWindow.height();
}

bool PictureBar::fitsTracks(QSize window)
{
    return fits(window) && window.width() >= kWidthWithTracks;
}

void PictureBar::fitInto(QSize window)
{
    const int edge = window.width() < kNarrow ? kNarrowEdge : kBarEdge;
    layout()->setContentsMargins(edge, kAboveTrack, edge, edge);
    const int height = layout()->sizeHint().height();
    setGeometry(0, window.height() - height, window.width(), height);
}

void PictureBar::showTime(double seconds, double duration)
{
    if (!track->isHeld()) {
        showPosition(seconds);
    }
    length->setText(clockText(duration));
    track->showTime(seconds, duration);
}

void PictureBar::showPosition(double seconds)
{
    position->setText(clockTextWithTenths(seconds));
}

/// The time under the pointer, and the words of the brake that is there.
void PictureBar::showBubble(int x)
{
    const LessonMark* mark = track->markAt(x);
    bubble->showPicture(pictureOfSign(clockText(track->momentAt(x)),
                                      mark != nullptr ? mark->text : QString(),
                                      {.fontSize = kBubbleFont,
                                       .width = width() - 2 * kNarrowEdge,
                                       .devicePixelRatio = devicePixelRatioF()},
                                      look::kRaised));
    const int wanted = track->x() + x - bubble->width() / 2;
    const int last = std::max(kNarrowEdge, width() - kNarrowEdge - bubble->width());
    bubble->move(std::clamp(wanted, kNarrowEdge, last), track->y() - bubble->height() - 2);
    bubble->raise();
}

/// A column of the ground is made once and drawn across the bar.
void PictureBar::paintEvent(QPaintEvent* /*event*/)
{
    if (m_ground.height() != height()) {
        m_ground = QPixmap(1, height());
        m_ground.fill(Qt::transparent);
        QLinearGradient shade(0, 0, 0, height());
        QColor clear = look::kGround;
        clear.setAlpha(0);
        shade.setColorAt(0, clear);
        shade.setColorAt(kAboveTexts, look::kSoftGround);
        shade.setColorAt(1, look::kBarGround);
        QPainter(&m_ground).fillRect(m_ground.rect(), shade);
    }
    QPainter(this).drawPixmap(rect(), m_ground);
}

// A click beside the buttons is none on the picture.
void PictureBar::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
}

void PictureBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

} // namespace orvanta
