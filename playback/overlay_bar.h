// The bar over the picture: position, times and buttons.
#pragma once

#include "model/texts.h"

#include <QLabel>
#include <QPixmap>
#include <QWidget>

namespace orvanta {

class BarButton;
class BarTrack;
class OverlayPicture;
class WaitRing;

/// Lies over the lower edge of its parent, in no layout. It shows what it is told and does nothing
/// itself. Nothing of it takes the focus. Interface thread only.
class PictureBar : public QWidget
{
    Q_OBJECT

public:
    explicit PictureBar(QWidget* parent);

    QLabel* position; // m:ss.d
    BarTrack* track;
    QLabel* length; // m:ss
    BarButton* previous;
    BarButton* play;
    BarButton* next;
    BarButton* again;
    BarButton* repeat;
    QLabel* repeatText; // "Repeat 2 of 5"
    WaitRing* ring;     // the wait between two lines
    QLabel* speed;      // "0.8 ×"
    BarButton* text;
    BarButton* tracks; // sound and subtitles
    BarButton* fullScreen;
    OverlayPicture* bubble; // the moment under the pointer

    /// Seconds.
    void showTime(double seconds, double duration);
    void setTips(TextLanguage language);
    /// Lies over the lower edge of a window of this size; a small one has narrower edges.
    void fitInto(QSize window);
    /// Whether a window of this size has room for it.
    [[nodiscard]] static bool fits(QSize window);
    /// Whether it also has room for the button of sound and subtitles.
    [[nodiscard]] static bool fitsTracks(QSize window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void layOut();
    void nameParts();
    void showBubble(int x);
    void showPosition(double seconds);

    QPixmap m_ground; // one column of it
};

} // namespace orvanta
