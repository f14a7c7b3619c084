#include "platform/screen/window_basics.h"

#include <QTextDocument>

namespace orvanta {

QSize firstSizeOn(const QScreen& screen, QSize wanted)
{
    constexpr QSize kFrame(16, 48); // of any usual window manager
    return wanted.boundedTo(screen.availableSize() - kFrame);
}

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace orvanta
