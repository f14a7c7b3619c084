#include "playback/sign_picture.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace orvanta {

constexpr int kSignPart = 38; // a sign's font is this part of the window's height
constexpr int kSmallestSign = 12;
constexpr int kLargestSign = 28;

int signTextSize(int windowHeight)
{
    return std::clamp(windowHeight / kSignPart, kSmallestSign, kLargestSign);
}

namespace {

/// Logical pixels.
struct SignMeasures
{
    QFont font;
    int side = 0; // free at the left and the right
    int gap = 0;  // between lead and text
    int height = 0;
};

} // namespace

static SignMeasures measuresOf(int fontSize)
{
    SignMeasures measures;
    measures.font = QGuiApplication::font();
    measures.font.setPixelSize(fontSize);
    measures.side = fontSize;
    measures.gap = fontSize * 2 / 3;
    measures.height = std::max(fontSize * 5 / 2, QFontMetrics(measures.font).height());
    return measures;
}

static QPixmap groundOf(QSize size, qreal devicePixelRatio, const QColor& colour)
{
    QPixmap picture((QSizeF(size) * devicePixelRatio).toSize());
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double radius = size.height() / 4.5;
    painter.drawRoundedRect(QRectF(QPointF(), size), radius, radius);
    return picture;
}

QPixmap pictureOfSign(const QString& lead, const QString& text, const TextShape& shape,
                      const QColor& ground)
{
    const SignMeasures measures = measuresOf(shape.fontSize);
    const QFontMetrics metrics(measures.font);
    const int begin = lead.isEmpty() ? 0 : metrics.horizontalAdvance(lead) + measures.gap;
    const int room = std::max(0, shape.width - 2 * measures.side - begin);
    const QString shown = metrics.elidedText(text.simplified(), Qt::ElideRight, room);
    const int end = shown.isEmpty() ? begin - (begin > 0 ? measures.gap : 0)
                                    : begin + metrics.horizontalAdvance(shown);
    const QSize size(end + 2 * measures.side, measures.height);
    QPixmap picture = groundOf(size, shape.devicePixelRatio, ground);
    QPainter painter(&picture);
    painter.setFont(measures.font);
    const QRect words = QRect(QPoint(), size).adjusted(measures.side, 0, -measures.side / 2, 0);
    painter.setPen(look::kAccent);
    painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, lead);
    painter.setPen(look::kText);
    painter.drawText(words.adjusted(begin, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    return picture;
}

} // namespace orvanta
