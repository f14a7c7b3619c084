// Paints the rows of an editor's list.
#pragma once

#include "editors/entry_list_view.h"

#include <QStyledItemDelegate>

namespace orvanta {

/// Number, mark, the entry's lead and text, and its path in a muted colour at the right. Colours
/// are the desktop's.
class EntryPainter : public QStyledItemDelegate
{
public:
    explicit EntryPainter(EntryListView* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    void paintMark(QPainter& painter, const QRect& row, const QColor& colour) const;
    void paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;

    EntryListView* m_view;
};

} // namespace orvanta
