#include "system/icon_preview.h"

#include "platform/file_types/type_icons.h"

#include <QPainter>

namespace orvanta {

constexpr int kPictureSide = 96; // logical pixels
constexpr int kFrameWidth = 12;

IconPreview::IconPreview(QWidget* parent)
    : QFrame(parent)
{
    setFrameShape(StyledPanel);
    setFrameShadow(Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFixedSize(kPictureSide + 2 * kFrameWidth, kPictureSide + 2 * kFrameWidth);
}

void IconPreview::showFile(const QString& icoFile)
{
    const qreal ratio = devicePixelRatioF();
    QImage picture = readIcon(icoFile, qRound(kPictureSide * ratio));
    picture.setDevicePixelRatio(ratio);
    m_picture = QPixmap::fromImage(picture);
    update();
}

void IconPreview::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    if (m_picture.isNull()) {
        return;
    }
    const QSizeF size = m_picture.deviceIndependentSize();
    QPainter painter(this);
    painter.drawPixmap(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2),
                       m_picture);
}

} // namespace orvanta
