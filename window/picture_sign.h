// A picture that only shows something: the window's badge, what a slider is for.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace orvanta {

/// Draws itself anew at every scale of the screen. Lets the mouse pass to what is below.
class PictureSign : public QWidget
{
    Q_OBJECT

public:
    using Draw = std::function<QPixmap(qreal devicePixelRatio)>;

    PictureSign(Draw draw, QSize size, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Draw m_draw;
    QPixmap m_drawn; // kept for one scale
};

} // namespace orvanta
