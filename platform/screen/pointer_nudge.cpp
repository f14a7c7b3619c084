#include "platform/screen/pointer_nudge.h"

#include <QCursor>
#include <QGuiApplication>

namespace orvanta {

using namespace Qt::StringLiterals;

void nudgePointer()
{
    if (QGuiApplication::platformName().startsWith(u"wayland"_s)) {
        return; // no program may move the cursor there
    }
    const QPoint place = QCursor::pos();
    QCursor::setPos(place + QPoint(0, 1));
    QCursor::setPos(place);
}

} // namespace orvanta
