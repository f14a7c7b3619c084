#include "playback/overlay_button.h"

#include "platform/file_types/drawing.h"
#include "playback/control_rows.h"
#include "playback/picture_look.h"

#include <QPainter>
#include <QPixmapCache>

namespace orvanta {

using namespace Qt::StringLiterals;

// Logical pixels.
constexpr int kOrdinarySide = 32;
constexpr int kPrincipalSide = 40;
constexpr int kDrawingSide = 16;
constexpr double kButtonRadius = 6;

BarButton::BarButton(const char* drawing, Rank rank, QWidget* parent)
    : QAbstractButton(parent),
      m_drawing(drawing),
      m_rank(rank)
{
    const int side = rank == Principal ? kPrincipalSide : kOrdinarySide;
    setFixedSize(side, side);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
}

void BarButton::setDrawing(const char* drawing)
{
    m_drawing = drawing;
    update();
}

void BarButton::setTip(const QString& tip, const QString& key)
{
    setTipWithKey(*this, tip, key);
    setAccessibleName(tip);
}

static QByteArray coloured(const char* drawing, const QColor& colour)
{
    return uR"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><g fill="none" )"
           uR"(stroke="%1" stroke-width="1.6" stroke-linecap="round" stroke-linejoin="round">)"
           uR"(%2</g></svg>)"_s
               .arg(colour.name(), QString::fromLatin1(drawing).replace(u"%1"_s, colour.name()))
               .toUtf8();
}

QPixmap BarButton::painted() const
{
    const bool isBright = m_rank == Principal;
    const QColor ground = isBright      ? look::kAccent
                          : isChecked() ? look::kAccentFaint
                                        : look::kGround;
    const QColor stroke = isBright ? look::kOnAccent : isChecked() ? look::kAccent : look::kText;
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap((QSizeF(size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(underMouse() && !isDown() ? ground.lighter(isBright ? 110 : 200) : ground);
    painter.drawRoundedRect(rect(), kButtonRadius, kButtonRadius);
    QRect place(0, 0, kDrawingSide, kDrawingSide);
    place.moveCenter(rect().center());
    paintDrawing(&painter, place, coloured(m_drawing, stroke));
    return pixmap;
}

// A frame below the button makes it paint again: from the cache.
void BarButton::paintEvent(QPaintEvent* /*event*/)
{
    const QString key = u"orvanta-bar-%1-%2-%3-%4-%5"_s.arg(QString::fromLatin1(m_drawing))
                            .arg(isChecked())
                            .arg(underMouse())
                            .arg(isDown())
                            .arg(devicePixelRatioF());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = painted();
        QPixmapCache::insert(key, pixmap);
    }
    QPainter(this).drawPixmap(0, 0, pixmap);
}

} // namespace orvanta
