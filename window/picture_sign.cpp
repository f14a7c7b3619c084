#include "window/picture_sign.h"

#include <QPainter>

#include <utility>

namespace orvanta {

PictureSign::PictureSign(Draw draw, QSize size, QWidget* parent)
    : QWidget(parent),
      m_draw(std::move(draw))
{
    setFixedSize(size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureSign::paintEvent(QPaintEvent* /*event*/)
{
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != devicePixelRatioF()) {
        m_drawn = m_draw(devicePixelRatioF());
    }
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

} // namespace orvanta
