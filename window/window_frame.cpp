#include "window/window_frame.h"

#include "platform/screen/window_basics.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace orvanta {

static Qt::CursorShape cursorOf(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge)) {
        return Qt::SizeFDiagCursor;
    }
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge)) {
        return Qt::SizeBDiagCursor;
    }
    return (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0 ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

WindowFrame::WindowFrame(QWidget* window)
    : QObject(window),
      m_window(window)
{
    window->setMouseTracking(true);
    window->installEventFilter(this);
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseMove:
        move(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        m_doing = Doing::Nothing;
        break;
    case QEvent::Leave:
        showCursorFor({});
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// The corners reach further than the edges, so that they are easy to take.
Qt::Edges WindowFrame::edgesAt(QPoint place) const
{
    if (m_window->isMaximized() || m_window->isFullScreen()) {
        return {};
    }
    constexpr int kCorner = 2 * kEdge;
    const QRect inside = m_window->rect().adjusted(kEdge, kEdge, -kEdge, -kEdge);
    if (inside.contains(place)) {
        return {};
    }
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, place.x() < kCorner);
    edges.setFlag(Qt::RightEdge, place.x() >= m_window->width() - kCorner);
    edges.setFlag(Qt::TopEdge, place.y() < kCorner);
    edges.setFlag(Qt::BottomEdge, place.y() >= m_window->height() - kCorner);
    return edges;
}

void WindowFrame::showCursorFor(Qt::Edges edges)
{
    if (edges == Qt::Edges()) {
        m_window->unsetCursor();
    } else {
        m_window->setCursor(cursorOf(edges));
    }
}

void WindowFrame::press(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton) {
        return;
    }
    m_pressedAt = event.globalPosition().toPoint();
    m_geometry = m_window->geometry();
    m_edges = edgesAt(event.position().toPoint());
    if (m_edges == Qt::Edges()) {
        m_doing = Doing::Pressed;
    } else {
        beginResizing();
    }
}

void WindowFrame::beginResizing()
{
    QWindow* window = m_window->windowHandle();
    const bool helped = window != nullptr && window->startSystemResize(m_edges);
    m_doing = helped ? Doing::Nothing : Doing::Resizing;
}

void WindowFrame::beginMoving()
{
    QWindow* window = m_window->windowHandle();
    const bool helped = window != nullptr && window->startSystemMove();
    m_doing = helped ? Doing::Nothing : Doing::Moving;
}

void WindowFrame::move(const QMouseEvent& event)
{
    // Less than the desktop's drag distance: the window lags behind the pointer by this much.
    constexpr int kSlack = 3;
    const QPoint place = event.globalPosition().toPoint();
    if (m_doing == Doing::Pressed && (place - m_pressedAt).manhattanLength() >= kSlack) {
        beginMoving();
    }
    if (m_doing == Doing::Moving || m_doing == Doing::Resizing) {
        moveByHand(place);
    } else if (m_doing == Doing::Nothing) {
        showCursorFor(edgesAt(event.position().toPoint()));
    }
}

void WindowFrame::moveByHand(QPoint globalPlace)
{
    const QPoint distance = globalPlace - m_pressedAt;
    if (m_doing == Doing::Moving) {
        m_window->move(m_geometry.topLeft() + distance);
    } else {
        m_window->setGeometry(resizedBy(distance));
    }
}

QRect WindowFrame::resizedBy(QPoint distance) const
{
    const QSize least = m_window->minimumSizeHint().expandedTo(m_window->minimumSize());
    QRect wanted = m_geometry;
    if (m_edges.testFlag(Qt::LeftEdge)) {
        wanted.setLeft(std::min(wanted.left() + distance.x(), wanted.right() + 1 - least.width()));
    }
    if (m_edges.testFlag(Qt::RightEdge)) {
        wanted.setRight(std::max(wanted.right() + distance.x(), wanted.left() - 1 + least.width()));
    }
    if (m_edges.testFlag(Qt::TopEdge)) {
        wanted.setTop(std::min(wanted.top() + distance.y(), wanted.bottom() + 1 - least.height()));
    }
    if (m_edges.testFlag(Qt::BottomEdge)) {
        wanted.setBottom(
            std::max(wanted.bottom() + distance.y(), wanted.top() - 1 + least.height()));
    }
    return wanted;
}

} // namespace orvanta
