#include "window/skin_slider.h"

#include "window/skin.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvanta {

constexpr double kKnobRadius = 7;
constexpr double kGrooveHeight = 4;
constexpr double kPageSteps = 10;

namespace {

class SkinSliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit SkinSliderAccessible(SkinSlider* slider)
        : QAccessibleWidget(slider, QAccessible::Slider),
          m_slider(slider)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QVariant currentValue() const override { return m_slider->value(); }
    void setCurrentValue(const QVariant& value) override { m_slider->stepTo(value.toDouble()); }
    [[nodiscard]] QVariant maximumValue() const override { return 100.0; }
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1.0; }

private:
    SkinSlider* m_slider;
};

} // namespace

static QAccessibleInterface* accessibleSlider(const QString& /*className*/, QObject* object)
{
    auto* slider = qobject_cast<SkinSlider*>(object);
    return slider != nullptr ? new SkinSliderAccessible(slider) : nullptr;
}

static void announceSliders()
{
    static const bool kOnce = (QAccessible::installFactory(accessibleSlider), true);
    Q_UNUSED(kOnce)
}

static std::optional<double> steppedByKey(int key, double value, double step)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return value - step;
    case Qt::Key_Right:
    case Qt::Key_Up:
        return value + step;
    case Qt::Key_PageDown:
        return value - kPageSteps;
    case Qt::Key_PageUp:
        return value + kPageSteps;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return 100;
    default:
        return std::nullopt;
    }
}

SkinSlider::SkinSlider(Fill fill, double step, QWidget* parent)
    : QWidget(parent),
      m_fill(fill),
      m_step(step)
{
    announceSliders();
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SkinSlider::setValue(double value)
{
    const double kept = std::clamp(value, 0.0, 100.0);
    if (kept == m_value) {
        return;
    }
    m_value = kept;
    update();
    constexpr int kEveryMs = 5000;
    if (!m_said.isValid() || m_said.hasExpired(kEveryMs)) {
        sayValue();
    }
}

/// A reader would never come to an end with a value that goes on by itself several times a second.
void SkinSlider::sayValue()
{
    m_said.start();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, m_value);
        QAccessible::updateAccessibility(&event);
    }
}

void SkinSlider::stepTo(double value)
{
    const double before = m_value;
    m_said.invalidate();
    setValue(value);
    if (m_value == before) {
        return;
    }
    Q_EMIT userChanged(m_value);
    Q_EMIT committed(m_value);
    Q_EMIT interactionEnded();
}

QSize SkinSlider::sizeHint() const
{
    return {96, 24};
}

QSize SkinSlider::minimumSizeHint() const
{
    return {56, 24};
}

// As wide as an even number of pixels, so that a pointer can hit the middle: half of the volume, no
// more sound on one side than on the other.
QRectF SkinSlider::groove() const
{
    const int room = width() - static_cast<int>(2 * kKnobRadius);
    return {kKnobRadius, (height() - kGrooveHeight) / 2, static_cast<double>(room - room % 2),
            kGrooveHeight};
}

double SkinSlider::knobCentre() const
{
    return groove().left() + groove().width() * m_value / 100;
}

double SkinSlider::valueAt(double x) const
{
    return std::clamp((x - groove().left()) / groove().width() * 100, 0.0, 100.0);
}

void SkinSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_dragging = true;
    m_changed = false;
    m_grip = event->position().x() - knobCentre();
    if (std::abs(m_grip) > kKnobRadius) {
        m_grip = 0;
        dragTo(valueAt(event->position().x()));
    }
    update();
}

void SkinSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        dragTo(valueAt(event->position().x() - m_grip));
    }
}

void SkinSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragging && event->button() == Qt::LeftButton) {
        endDrag(true);
    }
}

// A window that is hidden under the user's hand gets no release; the hand must not count as on the
// slider for ever.
void SkinSlider::hideEvent(QHideEvent* event)
{
    if (m_dragging) {
        endDrag(false);
    }
    QWidget::hideEvent(event);
}

void SkinSlider::dragTo(double value)
{
    if (value == m_value) {
        return;
    }
    m_said.invalidate();
    setValue(value);
    m_changed = true;
    Q_EMIT userChanged(m_value);
}

void SkinSlider::endDrag(bool commit)
{
    m_dragging = false;
    update();
    if (m_changed && commit) {
        Q_EMIT committed(m_value);
    }
    Q_EMIT interactionEnded();
}

void SkinSlider::wheelEvent(QWheelEvent* event)
{
    constexpr int kNotch = 120;
    const QPoint turned = event->angleDelta();
    m_wheel += turned.y() != 0 ? turned.y() : -turned.x();
    const int steps = m_wheel / kNotch;
    m_wheel -= steps * kNotch;
    if (steps != 0 && !m_dragging) {
        stepTo(m_value + steps * m_step);
    }
    event->accept();
}

void SkinSlider::keyPressEvent(QKeyEvent* event)
{
    const std::optional<double> value = steppedByKey(event->key(), m_value, m_step);
    if (value.has_value()) {
        stepTo(*value);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void SkinSlider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGroove(painter);
    paintKnob(painter);
}

void SkinSlider::paintGroove(QPainter& painter) const
{
    const QRectF whole = groove().adjusted(-kGrooveHeight / 2, 0, kGrooveHeight / 2, 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin::kLine);
    painter.drawRoundedRect(whole, kGrooveHeight / 2, kGrooveHeight / 2);
    const double from = m_fill == Fill::FromLeft ? whole.left() : whole.center().x();
    const double to = knobCentre();
    painter.setBrush(skin::kAccent);
    painter.drawRoundedRect(
        QRectF(std::min(from, to), whole.top(), std::abs(to - from), kGrooveHeight),
        kGrooveHeight / 2, kGrooveHeight / 2);
    if (m_fill == Fill::FromCentre) {
        painter.setBrush(skin::kTextMuted);
        painter.drawRect(QRectF(from - 0.5, whole.top() - 3, 1, kGrooveHeight + 6));
    }
}

void SkinSlider::paintKnob(QPainter& painter) const
{
    const QPointF centre(knobCentre(), groove().center().y());
    if (hasFocus()) {
        painter.setPen(QPen(skin::kAccent, 2));
        painter.setBrush(skin::kSurface);
        painter.drawEllipse(centre, kKnobRadius + 2.5, kKnobRadius + 2.5);
    }
    const bool lively = underMouse() || m_dragging;
    painter.setPen(Qt::NoPen);
    painter.setBrush(lively ? skin::kKnob : skin::kText);
    const double radius = m_dragging ? kKnobRadius : lively ? kKnobRadius - 0.5 : kKnobRadius - 1;
    painter.drawEllipse(centre, radius, radius);
}

} // namespace orvanta
