#include "window/clip_line.h"

#include "window/skin.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace orvanta {

ClipLine::ClipLine(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
}

void ClipLine::showText(const QString& text)
{
    setText(text);
    setCursorPosition(0);
}

QRect ClipLine::textRect() const
{
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    // A line edit keeps two pixels between its frame and its text.
    return style()->subElementRect(QStyle::SE_LineEditContents, &frame, this).adjusted(2, 0, -2, 0);
}

bool ClipLine::mustElide() const
{
    return !hasFocus() && fontMetrics().horizontalAdvance(text()) > textRect().width();
}

void ClipLine::paintEvent(QPaintEvent* event)
{
    if (mustElide()) {
        QPainter painter(this);
        QStyleOptionFrame frame;
        initStyleOption(&frame);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
        painter.setPen(skin::kText);
        painter.drawText(textRect(), Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(text(), Qt::ElideRight, textRect().width()));
    } else {
        QLineEdit::paintEvent(event);
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(text().isEmpty() ? skin::kLine : skin::kAccent);
    painter.drawRoundedRect(QRectF(0, skin::kGrid, 3, height() - 2 * skin::kGrid), 1.5, 1.5);
}

void ClipLine::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    deselect();
    setCursorPosition(0);
}

} // namespace orvanta
