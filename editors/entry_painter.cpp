#include "editors/entry_painter.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace orvanta {

namespace {

// Logical pixels.
constexpr int kPadding = 6;
constexpr int kMarkWidth = 12;

QColor muted(QColor colour)
{
    colour.setAlphaF(0.62F);
    return colour;
}

} // namespace

EntryPainter::EntryPainter(EntryListView::Look look, EntryListView* view)
    : QStyledItemDelegate(view),
      m_look(std::move(look)),
      m_view(view)
{}

QSize EntryPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const
{
    return {100, option.fontMetrics.height() + kPadding};
}

void EntryPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.text.clear();
    item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    paintTexts(*painter, item, index);
}

void EntryPainter::paintMark(QPainter& painter, const QRect& row, const QColor& colour) const
{
    const QPointF centre(row.left() + kPadding + kMarkWidth / 2.0, row.center().y() + 0.5);
    QPainterPath triangle(centre + QPointF(-3, -4.5));
    triangle.lineTo(centre + QPointF(4.5, 0));
    triangle.lineTo(centre + QPointF(-3, 4.5));
    triangle.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(triangle, colour);
}

void EntryPainter::paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QPalette& palette = option.palette;
    const QColor text = palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const EntryLook look = m_look(index.data().toString());
    const QFontMetrics& metrics = option.fontMetrics;
    painter.save();
    painter.setFont(option.font);
    QRect rest = option.rect.adjusted(kPadding, 0, -kPadding, 0);
    if (index.row() == m_view->markedRow()) {
        paintMark(painter, option.rect, isSelected ? text : palette.color(QPalette::Highlight));
    }
    rest.setLeft(rest.left() + kMarkWidth + kPadding);

    const auto column = [&](const QString& what, int width, Qt::Alignment align,
                            const QColor& colour) {
        painter.setPen(colour);
        painter.drawText(QRect(rest.left(), rest.top(), width, rest.height()),
                         static_cast<int>(align | Qt::AlignVCenter) | Qt::TextSingleLine, what);
        rest.setLeft(rest.left() + width + 2 * kPadding);
    };
    const int numberWidth =
        metrics.horizontalAdvance(QString::number(std::max(index.model()->rowCount(), 10)));
    column(QString::number(index.row() + 1), numberWidth, Qt::AlignRight, muted(text));
    if (!look.lead.isEmpty()) {
        column(look.lead, metrics.horizontalAdvance(look.lead), Qt::AlignLeft, text);
    }
    // The text takes what it needs, the path what is left, but at least a third of the row.
    const int asideLeast = look.aside.isEmpty() ? 0 : rest.width() / 3;
    const int textWidth =
        std::min(metrics.horizontalAdvance(look.text) + 1, rest.width() - asideLeast);
    column(metrics.elidedText(look.text, Qt::ElideRight, textWidth), textWidth, Qt::AlignLeft,
           text);
    column(metrics.elidedText(look.aside, Qt::ElideMiddle, rest.width()), rest.width(),
           Qt::AlignRight, muted(text));
    painter.restore();
}

} // namespace orvanta
