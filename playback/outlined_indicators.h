// Check boxes that can be seen in dark windows.
#pragma once

#include <QProxyStyle>

namespace orvanta {

/// The toolkit's style outlines an empty box in a darker window colour, which in a dark list is the
/// list's own: where the colours are dark, an outline in the colour of the text goes around it.
class OutlinedIndicators : public QProxyStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace orvanta
