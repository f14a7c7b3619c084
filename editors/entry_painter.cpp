#include "editors/entry_painter.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace orvanta {

// Logical pixels.
constexpr int kPadding = 6;
constexpr int kMarkWidth = 12;

static QColor muted(QColor colour)
{
    colour.setAlphaF(0.62F);
    return colour;
}

EntryPainter::EntryPainter(EntryListView* view)
    : QStyledItemDelegate(view),
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

namespace {

/// Texts side by side from left to right in what is left of a row.
class RowOfTexts
{
public:
    RowOfTexts(QPainter& painter, const QFontMetrics& metrics, const QRect& row)
        : m_painter(painter),
          m_metrics(metrics),
          m_rest(row)
    {}

    [[nodiscard]] int restWidth() const { return std::max(m_rest.width(), 0); }

    void add(const QString& text, int width, Qt::Alignment align, const QColor& colour)
    {
        const QRect cell(m_rest.left(), m_rest.top(), width, m_rest.height());
        m_painter.setPen(colour);
        m_painter.drawText(cell, static_cast<int>(align | Qt::AlignVCenter) | Qt::TextSingleLine,
                           text);
        m_rest.setLeft(m_rest.left() + width + 2 * kPadding);
    }
    void add(const QString& text, const QColor& colour)
    {
        add(text, m_metrics.horizontalAdvance(text) + 1, Qt::AlignLeft, colour);
    }
    void addElided(const QString& text, int width, Qt::TextElideMode elide, Qt::Alignment align,
                   const QColor& colour)
    {
        add(m_metrics.elidedText(text, elide, width), width, align, colour);
    }

private:
    QPainter& m_painter;
    const QFontMetrics& m_metrics;
    QRect m_rest;
};

} // namespace

static int numberWidth(const QFontMetrics& metrics, const QModelIndex& index)
{
    const int last = std::max(index.model()->rowCount(), 10);
    return metrics.horizontalAdvance(QString::number(last)) + 1;
}

void EntryPainter::paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QColor text =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const EntryLook look = m_view->lookOf(index.row());
    const QFontMetrics& metrics = option.fontMetrics;
    painter.save();
    painter.setFont(option.font);
    if (index.row() == m_view->markedRow()) {
        paintMark(painter, option.rect,
                  isSelected ? text : option.palette.color(QPalette::Highlight));
    }
    RowOfTexts row(painter, metrics,
                   option.rect.adjusted(2 * kPadding + kMarkWidth, 0, -kPadding, 0));
    row.add(QString::number(index.row() + 1), numberWidth(metrics, index), Qt::AlignRight,
            muted(text));
    if (!look.lead.isEmpty()) {
        row.add(look.lead, text);
    }
    // The text takes what it needs; the path gets what is left, but at least a third.
    const int pathLeast = look.aside.isEmpty() ? 0 : row.restWidth() / 3;
    const int textWidth =
        std::min(metrics.horizontalAdvance(look.text) + 1, row.restWidth() - pathLeast);
    row.addElided(look.text, textWidth, Qt::ElideRight, Qt::AlignLeft,
                  look.isLent ? muted(text) : text);
    row.addElided(look.aside, row.restWidth(), Qt::ElideMiddle, Qt::AlignRight, muted(text));
    painter.restore();
}

} // namespace orvanta
