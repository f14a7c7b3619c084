#include "window/clip_line.h"

#include "window/skin.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <chrono>
#include <utility>

namespace orvanta {

constexpr std::chrono::seconds kTimeToRead(3);

ClipLine::ClipLine(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    m_saying.setSingleShot(true);
    m_saying.setInterval(kTimeToRead);
    connect(&m_saying, &QTimer::timeout, this, [this] { showText(m_textBelow); });
}

void ClipLine::showText(const QString& text)
{
    m_saying.stop();
    setText(text);
    setCursorPosition(0);
}

void ClipLine::sayForAMoment(const QString& message)
{
    if (!m_saying.isActive()) {
        m_textBelow = text();
    }
    showText(message);
    m_saying.start();
}

void ClipLine::keepAtRight(QWidget* child, std::function<void(int width)> fit)
{
    m_child = child;
    m_fit = std::move(fit);
    child->setParent(this);
    child->installEventFilter(this);
    placeChild();
}

bool ClipLine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_child && event->type() == QEvent::LayoutRequest) {
        placeChild();
    }
    return QLineEdit::eventFilter(watched, event);
}

void ClipLine::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    placeChild();
}

void ClipLine::placeChild()
{
    if (m_child == nullptr) {
        return;
    }
    m_fit(this->width() * 2 / 3); // the text matters more
    const int width = m_child->sizeHint().width();
    m_child->setGeometry(this->width() - width - skin::kGrid, 0, width, height());
    setTextMargins(0, 0, width > 0 ? width + skin::kGrid : 0, 0);
}

QRect ClipLine::textRect() const
{
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    // A line edit keeps two pixels between its frame and its text.
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &frame, this)
        .marginsRemoved(textMargins())
        .adjusted(2, 0, -2, 0);
}

bool ClipLine::mustElide() const
{
    return !hasFocus() && fontMetrics().horizontalAdvance(text()) > textRect().width();
}

void ClipLine::paintElided(const QString& shown, const QColor& colour)
{
    QPainter painter(this);
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
    painter.setPen(colour);
    painter.drawText(textRect(), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(shown, Qt::ElideRight, textRect().width()));
}

void ClipLine::paintEvent(QPaintEvent* event)
{
    if (text().isEmpty()) { // the style sheet would make the placeholder too faint
        paintElided(placeholderText(), skin::kTextMuted);
    } else if (mustElide()) {
        paintElided(text(), skin::kText);
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
