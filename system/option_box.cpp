#include "system/option_box.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>

namespace orvanta {

constexpr int kLeastCaptionWidth = 430; // logical pixels
constexpr int kPadding = 3;             // above and below, for the focus mark
constexpr int kCaptionFlags =
    Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;

int OptionBox::captionStart() const
{
    return style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) +
           style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, this) + 2;
}

QRect OptionBox::captionAt(int width) const
{
    return fontMetrics().boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), kCaptionFlags, text());
}

QSize OptionBox::sizeHint() const
{
    const QRect caption = captionAt(kLeastCaptionWidth);
    const int indicator = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this);
    return {captionStart() + kLeastCaptionWidth,
            std::max(caption.height(), indicator) + 2 * kPadding};
}

QSize OptionBox::minimumSizeHint() const
{
    return sizeHint();
}

QRect OptionBox::captionPlace() const
{
    QRect place = captionAt(width() - captionStart());
    place.moveTo(captionStart(), std::max((height() - place.height()) / 2, 0));
    return place;
}

/// The indicator stands beside the caption's first line.
void OptionBox::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect caption = captionPlace();
    QStyleOptionButton indicator = option;
    const int side = style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this);
    const int line = fontMetrics().height();
    indicator.rect = QRect(0, caption.top() + (line - side) / 2,
                           style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this), side);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &indicator, &painter, this);
    style()->drawItemText(&painter, caption, kCaptionFlags, palette(), isEnabled(), text(),
                          foregroundRole());
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = caption.adjusted(-2, -1, 2, 1);
        focus.backgroundColor = palette().color(QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

} // namespace orvanta
