#include "app/shown_watch.h"

#include "core/log.h"

#include <QEvent>
#include <QWidget>

namespace orvanta {

ShownWatch::ShownWatch(QWidget& window)
{
    window.installEventFilter(this);
}

bool ShownWatch::eventFilter(QObject*, QEvent* event)
{
    // A show event comes before the display system has mapped the window, a painting after it.
    if (event->type() == QEvent::Paint && !m_shown) {
        m_shown = true;
        qCInfo(logStartup, "main window shown");
    }
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        m_shown = false;
    }
    return false;
}

} // namespace orvanta
