#include "editors/time_slider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace orvanta {

constexpr double kTicksPerSecond = 1000; // of the base class, which counts in whole numbers

static int ticks(double seconds)
{
    const double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::round(seconds * kTicksPerSecond), 0.0, most));
}

/// Seconds that a key moves the slider by; none when the key is not the slider's.
static std::optional<double> stepOfKey(const QKeyEvent& event)
{
    const double arrow = event.modifiers().testFlag(Qt::ShiftModifier) ? 1.0 : 0.1;
    switch (event.key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        return arrow;
    case Qt::Key_Left:
    case Qt::Key_Down:
        return -arrow;
    case Qt::Key_PageUp:
        return 10.0;
    case Qt::Key_PageDown:
        return -10.0;
    default:
        return std::nullopt;
    }
}

TimeSlider::TimeSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setRange(0, 0);
    setFocusPolicy(Qt::StrongFocus);
    // Assistive technology sets the value itself, which is the user's doing like any other.
    connect(this, &QSlider::valueChanged, this, [this](int value) {
        if (!m_isSetting) {
            moveByUser(value / kTicksPerSecond, false);
        }
    });
}

double TimeSlider::length() const
{
    return maximum() / kTicksPerSecond;
}

void TimeSlider::setLength(double seconds)
{
    const QScopedValueRollback setting(m_isSetting, true); // a shorter length moves the handle
    setMaximum(ticks(seconds));
}

void TimeSlider::setSeconds(double seconds)
{
    const QScopedValueRollback setting(m_isSetting, true);
    m_seconds = seconds;
    setValue(ticks(seconds));
}

void TimeSlider::moveByUser(double seconds, bool held)
{
    if (maximum() == 0) {
        return; // no clip: a brake that is selected must not jump to 0
    }
    // A thousandth is the slider's own unit; finer digits would only be noise of the arithmetic.
    const double bounded = std::clamp(seconds, 0.0, length());
    setSeconds(std::round(bounded * kTicksPerSecond) / kTicksPerSecond);
    Q_EMIT moved(m_seconds, held);
}

void TimeSlider::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        moveByUser(event->key() == Qt::Key_Home ? 0 : length(), false);
    } else if (const std::optional<double> step = stepOfKey(*event)) {
        moveByUser(m_seconds + *step, false);
    } else {
        QSlider::keyPressEvent(event);
    }
}

void TimeSlider::wheelEvent(QWheelEvent* event)
{
    if (event->angleDelta().y() == 0) {
        return; // sideways: a brake that is selected must not be rewritten for nothing
    }
    constexpr double kNotch = 120; // eighths of a degree
    moveByUser(m_seconds + event->angleDelta().y() / kNotch, false);
    event->accept();
}

double TimeSlider::secondsAt(int x) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const int handle =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).width();
    const double way = std::max(groove.width() - handle, 1);
    const double part = std::clamp((x - groove.left() - handle / 2.0) / way, 0.0, 1.0);
    return (option.upsideDown ? 1 - part : part) * length();
}

void TimeSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        setSliderDown(true);
        moveByUser(secondsAt(event->pos().x()), true);
    }
}

void TimeSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) {
        moveByUser(secondsAt(event->pos().x()), true);
    }
}

void TimeSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && isSliderDown()) {
        setSliderDown(false);
        moveByUser(m_seconds, false);
    }
}

} // namespace orvanta
