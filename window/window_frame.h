// A frame for a window without one: moved by its surface, resized at its edges.
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QMouseEvent;
class QWidget;

namespace orvanta {

/// Watches the window's mouse events. The window manager moves and resizes where it offers that,
/// otherwise this object does. The window must leave its outermost pixels free of controls.
class WindowFrame : public QObject
{
    Q_OBJECT

public:
    /// Width of the edge that resizes, logical pixels.
    static constexpr int kEdge = 6;

    explicit WindowFrame(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] Qt::Edges edgesAt(QPoint place) const;
    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void showCursorFor(Qt::Edges edges);
    void beginMoving();
    void beginResizing();
    void moveByHand(QPoint globalPlace);
    [[nodiscard]] QRect resizedBy(QPoint distance) const;

    enum class Doing
    {
        Nothing,
        Pressed,  // the surface is held, but not moved yet
        Moving,   // without the window manager's help
        Resizing, // likewise
    };

    QWidget* m_window;
    Doing m_doing = Doing::Nothing;
    Qt::Edges m_edges;
    QPoint m_pressedAt; // global
    QRect m_geometry;   // of the window when it was pressed
};

} // namespace orvanta
