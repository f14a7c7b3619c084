#include "editors/focus_ring.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPainter>

namespace orvanta {

constexpr int kRingWidth = 2; // logical pixels

void showFocusOfViews(QWidget& window)
{
    for (auto* view : window.findChildren<QAbstractItemView*>()) {
        new FocusRing(view);
    }
}

FocusRing::FocusRing(QWidget* view)
    : QWidget(view)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    lieAroundTheView();
    setVisible(view->hasFocus());
    view->installEventFilter(this);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        raise();
        show();
        break;
    case QEvent::FocusOut:
        hide();
        break;
    case QEvent::Resize:
        lieAroundTheView();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// Nothing but the line itself, so that the rows below scroll as if it were not there.
void FocusRing::lieAroundTheView()
{
    const QRect whole = parentWidget()->rect();
    setGeometry(whole);
    setMask(QRegion(whole) - whole.adjusted(kRingWidth, kRingWidth, -kRingWidth, -kRingWidth));
}

void FocusRing::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
}

} // namespace orvanta
