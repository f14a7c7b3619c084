#include "playback/overlay_picture.h"

#include <QPainter>

#include <algorithm>

namespace orvanta {

constexpr int kFadeMilliseconds = 120;
constexpr int kFrameMilliseconds = 30;

OverlayPicture::OverlayPicture(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_frames.setInterval(kFrameMilliseconds);
    connect(&m_frames, &QTimer::timeout, this, &OverlayPicture::step);
}

void OverlayPicture::showPicture(const QPixmap& picture)
{
    if (picture.isNull()) {
        return fadeOut();
    }
    m_picture = picture;
    resize(picture.deviceIndependentSize().toSize());
    update();
    if (!m_isShown) {
        beginFade(true);
        show();
    }
}

void OverlayPicture::fadeOut()
{
    if (m_isShown) {
        beginFade(false);
    }
}

void OverlayPicture::vanish()
{
    m_frames.stop();
    m_isShown = false;
    m_strength = 0;
    hide();
}

void OverlayPicture::beginFade(bool in)
{
    m_isShown = in;
    m_begun.start();
    m_frames.start();
}

// The clock says how far it is, not the number of frames: a busy machine leaves frames out.
void OverlayPicture::step()
{
    const qreal passed = std::min<qreal>(1, qreal(m_begun.elapsed()) / kFadeMilliseconds);
    m_strength = m_isShown ? std::max(m_strength, passed) : std::min(m_strength, 1 - passed);
    if (passed == 1) {
        m_frames.stop();
        setVisible(m_isShown);
    }
    update();
}

void OverlayPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setOpacity(m_strength);
    painter.drawPixmap(0, 0, m_picture);
}

} // namespace orvanta
