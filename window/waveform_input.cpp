// The strip under a person's hand.
#include "window/waveform_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

constexpr double kLeastMove = 3; // logical pixels; less is a click
constexpr double kZoomStep = 1.25;
constexpr double kKeyZoomStep = 2;
constexpr double kNotchAngle = 120;
constexpr double kNotchScroll = 1.0 / 8; // of the strip
constexpr double kHundredths = 100;      // of a second; finer no brake is kept

WaveformBrake& WaveformStrip::draggedBrake()
{
    return m_brakes[static_cast<std::size_t>(m_drag->index)];
}

const WaveformBrake& WaveformStrip::draggedBrake() const
{
    return m_brakes[static_cast<std::size_t>(m_drag->index)];
}

void WaveformStrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_scale.length() <= 0) {
        event->ignore();
        return;
    }
    const double x = event->position().x();
    const int index = brakeAt(flags(), m_selected, event->position());
    if (index < 0) {
        askPlace(m_scale.momentAt(x));
        return;
    }
    const double seconds = m_brakes[static_cast<std::size_t>(index)].seconds;
    const double line = m_scale.placeOf(std::min(seconds, length()));
    m_drag = Drag{index, seconds, x - line, x, false};
    update();
    Q_EMIT brakeChosen(index);
}

void WaveformStrip::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_drag) {
        showCursor(event->position());
        return;
    }
    const double x = event->position().x();
    if (m_drag->hasMoved || std::abs(x - m_drag->pressed) >= kLeastMove) {
        dragTo(x);
    }
}

void WaveformStrip::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_drag) {
        return;
    }
    const double seconds = draggedBrake().seconds;
    const Drag drag = *std::exchange(m_drag, std::nullopt);
    update();
    if (drag.hasMoved) {
        Q_EMIT brakeDragged(drag.index, seconds);
    }
}

/// Where the brake that is dragged goes: it stays between its neighbours, whose order is theirs.
double WaveformStrip::dragged(double x) const
{
    const auto index = static_cast<std::size_t>(m_drag->index);
    const double hundredths = std::round(m_scale.momentAt(x - m_drag->grip) * kHundredths);
    const double least =
        index > 0 ? std::floor(m_brakes[index - 1].seconds * kHundredths) + 1 : 0.0;
    const double most = index + 1 < m_brakes.size()
                            ? std::ceil(m_brakes[index + 1].seconds * kHundredths) - 1
                            : std::floor(length() * kHundredths);
    // Divided, not multiplied: the number that a text of two decimals means.
    return most >= least ? std::clamp(hundredths, least, most) / kHundredths : m_drag->from;
}

void WaveformStrip::dragTo(double x)
{
    m_drag->hasMoved = true;
    const int index = m_drag->index;
    const double seconds = dragged(x);
    if (std::exchange(draggedBrake().seconds, seconds) != seconds) {
        update();
        Q_EMIT brakeDragging(index, seconds);
    }
}

void WaveformStrip::giveUpDrag()
{
    if (!m_drag) {
        return;
    }
    draggedBrake().seconds = m_drag->from;
    const Drag drag = *std::exchange(m_drag, std::nullopt);
    update();
    if (drag.hasMoved) {
        Q_EMIT brakeDragGivenUp(drag.index);
    }
}

// A window that is hidden under the user's hand gets no release.
void WaveformStrip::hideEvent(QHideEvent* event)
{
    giveUpDrag();
    QWidget::hideEvent(event);
}

void WaveformStrip::showCursor(const QPointF& pointer)
{
    const bool isOnBrake = brakeAt(flags(), m_selected, pointer) >= 0;
    setCursor(isOnBrake ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void WaveformStrip::zoomAround(double x, double factor)
{
    m_scale.zoomAround(x, factor);
    update();
}

// Some systems turn a wheel with Shift into a horizontal one, some do not.
void WaveformStrip::wheelEvent(QWheelEvent* event)
{
    const QPointF turned = QPointF(event->angleDelta()) / kNotchAngle;
    const bool scrolls = turned.x() != 0 || event->modifiers().testFlag(Qt::ShiftModifier);
    if (scrolls) {
        const double notches = turned.x() != 0 ? turned.x() : turned.y();
        m_scale.scrollBy(-notches * width() * kNotchScroll);
        update();
    } else {
        zoomAround(event->position().x(), std::pow(kZoomStep, turned.y()));
    }
    event->accept();
}

bool WaveformStrip::stepByKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        askPlace(m_place - 1);
        return true;
    case Qt::Key_Right:
        askPlace(m_place + 1);
        return true;
    case Qt::Key_Home:
        askPlace(0);
        return true;
    case Qt::Key_End:
        askPlace(length());
        return true;
    default:
        return false;
    }
}

void WaveformStrip::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = !event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (event->key() == Qt::Key_Escape && m_drag) {
        giveUpDrag();
    } else if (isPlain && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
        zoomAround(m_scale.placeOf(m_place), kKeyZoomStep);
    } else if (isPlain && event->key() == Qt::Key_Minus) {
        zoomAround(m_scale.placeOf(m_place), 1 / kKeyZoomStep);
    } else if (!isPlain || !stepByKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void WaveformStrip::resizeEvent(QResizeEvent* event)
{
    m_scale.setWidth(width());
    QWidget::resizeEvent(event);
}

} // namespace orvanta
