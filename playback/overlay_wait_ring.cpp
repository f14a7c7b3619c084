#include "playback/overlay_wait_ring.h"

#include "playback/picture_look.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kFrameMilliseconds = 100;

WaitRing::WaitRing(TextLanguage language, QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(kSide, kSide);
    setObjectName(u"Ring"_s);
    setLanguage(language);
    setCursor(Qt::PointingHandCursor);
    m_frames.setInterval(kFrameMilliseconds);
    connect(&m_frames, &QTimer::timeout, this, qOverload<>(&QWidget::update));
    hide();
}

void WaitRing::setLanguage(TextLanguage language)
{
    setToolTip(interfaceText(u"Practice", u"Waiting", language));
    setAccessibleName(toolTip());
}

void WaitRing::begin(double seconds)
{
    m_seconds = seconds;
    m_since.start();
    if (seconds > 0) {
        m_frames.start();
    }
    show();
    update();
}

void WaitRing::end()
{
    m_frames.stop();
    hide();
}

/// Of the whole, 1 to 0.
double WaitRing::left() const
{
    const double gone = static_cast<double>(m_since.elapsed()) / 1000;
    return m_seconds > 0 ? std::clamp(1 - gone / m_seconds, 0.0, 1.0) : 1;
}

void WaitRing::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double kPen = 2.5;
    constexpr int kTop = 90 * 16; // sixteenths of a degree
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = QRectF(rect()).adjusted(kPen, kPen, -kPen, -kPen);
    painter.setPen(QPen(look::kGroove, kPen));
    painter.drawEllipse(ring);
    painter.setPen(QPen(look::kAccent, kPen, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, kTop, static_cast<int>(left() * 360 * 16));
}

void WaitRing::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        Q_EMIT pressed();
    }
}

} // namespace orvanta
