#include "playback/outlined_indicators.h"

#include <QPainter>
#include <QStyleOption>

namespace orvanta {

static bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

static QColor outlineColour(const QStyleOption& option)
{
    constexpr float kEnabled = 0.55F;
    constexpr float kDisabled = 0.25F;
    QColor colour = option.palette.color(QPalette::Active, QPalette::WindowText);
    colour.setAlphaF((option.state & QStyle::State_Enabled) != 0 ? kEnabled : kDisabled);
    return colour;
}

void OutlinedIndicators::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                       QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox;
    if ((!isBox && element != PE_IndicatorRadioButton) || !isDark(option->palette)) {
        return;
    }
    painter->save();
    painter->setPen(outlineColour(*option));
    painter->setBrush(Qt::NoBrush);
    if (isBox) {
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    } else {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter->restore();
}

} // namespace orvanta
