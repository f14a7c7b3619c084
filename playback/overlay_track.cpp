#include "playback/overlay_track.h"

#include "playback/picture_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

// Logical pixels.
constexpr int kTrackHeight = 24;
constexpr int kGroove = 4;
constexpr int kKnobRadius = 8;
constexpr int kMarkHeight = 14;
constexpr int kNearMark = 5; // so near, the pointer means the mark
constexpr double kTenths = 10;

BarTrack::BarTrack(QWidget* parent)
    : QAbstractSlider(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setFixedHeight(kTrackHeight);
    setCursor(Qt::ArrowCursor);
}

void BarTrack::showTime(double position, double duration)
{
    const int before = placeOf(m_position);
    const bool isLonger = duration != m_duration;
    m_duration = duration;
    if (!m_isHeld) {
        m_position = position;
    }
    // A pixel of a long clip is many frames.
    if (isLonger || placeOf(m_position) != before) {
        setRange(0, static_cast<int>(std::min(m_duration * kTenths, 1e9)));
        setValue(static_cast<int>(std::min(m_position * kTenths, 1e9)));
        update();
    }
}

void BarTrack::setMarks(std::vector<LessonMark> marks)
{
    if (marks != m_marks) {
        m_marks = std::move(marks);
        update();
    }
}

int BarTrack::placeOf(double seconds) const
{
    const double part = m_duration > 0 ? std::clamp(seconds / m_duration, 0.0, 1.0) : 0.0;
    return kKnobRadius + static_cast<int>(std::lround(part * (width() - 2 * kKnobRadius)));
}

const LessonMark* BarTrack::markAt(int x) const
{
    const LessonMark* nearest = nullptr;
    int distance = kNearMark;
    for (const LessonMark& mark : m_marks) {
        const int away = std::abs(placeOf(mark.seconds) - x);
        if (away <= distance) {
            nearest = &mark;
            distance = away;
        }
    }
    return nearest;
}

double BarTrack::momentAt(int x) const
{
    if (const LessonMark* mark = markAt(x)) {
        return mark->seconds;
    }
    const double room = std::max(1, width() - 2 * kKnobRadius);
    return std::clamp((x - kKnobRadius) / room, 0.0, 1.0) * m_duration;
}

void BarTrack::drag(int x)
{
    m_position = momentAt(x);
    update();
    Q_EMIT dragged(m_position);
}

void BarTrack::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && m_duration > 0) {
        m_isHeld = true;
        drag(event->pos().x());
    }
}

void BarTrack::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (m_isHeld) {
        drag(event->pos().x());
    }
    Q_EMIT hovered(event->pos().x());
}

void BarTrack::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && std::exchange(m_isHeld, false)) {
        Q_EMIT dropped(m_position);
    }
}

void BarTrack::leaveEvent(QEvent* /*event*/)
{
    Q_EMIT left();
}

void BarTrack::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void BarTrack::paintMarks(QPainter& painter) const
{
    for (const LessonMark& mark : m_marks) {
        const int wide = mark.isEnd ? 3 : 2;
        const QRect place(placeOf(mark.seconds) - wide / 2, (height() - kMarkHeight) / 2, wide,
                          kMarkHeight);
        painter.fillRect(place, mark.isEnd ? look::kWarning : look::kText);
    }
}

void BarTrack::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const int knob = placeOf(m_position);
    const QRect groove(kKnobRadius, (height() - kGroove) / 2, width() - 2 * kKnobRadius, kGroove);
    painter.setBrush(look::kGroove);
    painter.drawRoundedRect(groove, kGroove / 2.0, kGroove / 2.0);
    painter.setBrush(look::kAccent);
    painter.drawRoundedRect(QRect(groove.topLeft(), QPoint(knob, groove.bottom())), kGroove / 2.0,
                            kGroove / 2.0);
    paintMarks(painter);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(knob, height() / 2.0), kKnobRadius, kKnobRadius);
}

} // namespace orvanta
