// Icons of lists and trees that can be told from what they stand on.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QStyledItemDelegate>

namespace orvanta {

/// The icon as it is, unless it is drawn in shades of grey that can hardly be seen on the palette's
/// ground: then its shape in the colour of the text. Icon themes have pictures of one shade for
/// light schemes, and the desktop may have a dark one.
[[nodiscard]] QIcon legibleIcon(const QIcon& icon, const QPalette& palette);

/// Paints lines with such icons, by the palette of the moment.
class LegibleIcons : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace orvanta
