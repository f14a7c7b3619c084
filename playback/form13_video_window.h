// Form13, the video window: the player control, its events and the mirror fields.
//
//   ActiveMovie1   the running picture
//   Image1         still picture for clips without one of their own
//   Timer1         every 30 s: nudges the mouse cursor while a clip runs
#pragma once

#include "core/error_boundary.h"
#include "platform/media_control.h"
#include "platform/video_surface.h"
#include "playback/video_layout.h"
#include "playback/video_window.h"

#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace orvanta {

/// Its logical place (Left, Width, Height in twips) follows the program; the native window is
/// hidden while the logical one is out of sight, but not between two clips that both have a
/// picture. It appears without taking the focus. Interface thread only.
class Form13 : public QWidget, public VideoWindow
{
    Q_OBJECT

public:
    Form13(MediaControl& control, HandlerBoundary boundary);
    ~Form13() override;

    VideoSurface* ActiveMovie1; // the running picture
    QLabel* Image1;             // still picture for clips without one of their own
    QTimer Timer1;              // 30 s: the mouse nudge

    [[nodiscard]] VideoMirror& mirror() override { return m_mirror; }
    void prepareForMedia() override;
    void moveOutOfSight() override;
    void setStillPicture(const QString& file) override { m_stillFile = file; }
    void showWindow(bool show) override;

    /// The window beside which this one opens (the main window); without one it opens at the top
    /// left of the screen.
    void setNeighbour(QWidget* neighbour) { m_neighbour = neighbour; }

    /// The window's logical left edge, twips; -100000 when out of sight.
    [[nodiscard]] int Left() const { return m_left; }
    /// The window's logical size, twips. Its frame is counted as 50 by 200 around the picture.
    [[nodiscard]] int Width() const { return m_size.width(); }
    [[nodiscard]] int Height() const { return m_size.height(); }
    /// Whether the user has given the window a size; it is kept from then on.
    [[nodiscard]] bool isSizedByUser() const { return m_sizedByUser; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void connectHandlers();
    void Form13_ActiveMovie1_PositionEvent();
    void Form13_ActiveMovie1_PositionChange(double oldSeconds, double newSeconds);
    void Form13_ActiveMovie1_OpenComplete(QSize picture);
    void Form13_ActiveMovie1_OpenFailed();
    void Form13_ActiveMovie1_StateChange(int oldState, int newState);

    void showClipPicture(QSize picture);
    void showStillPicture();
    void bringIntoSight(QSize contents);
    void giveSize(QSize contents);
    void hideUnlessOpening();
    void layOutControls();
    [[nodiscard]] QRect room() const;
    [[nodiscard]] QSize frameSize() const;

    MediaControl& m_control;
    HandlerBoundary m_boundary;
    VideoMirror m_mirror;
    QPointer<QWidget> m_neighbour;
    QString m_stillFile;
    QImage m_still;
    int m_left = kOutOfSight; // twips
    QSize m_controlSize;      // twips
    QSize m_size;             // twips
    bool m_shownByProgram = false;
    bool m_sizedByUser = false;
    QSize m_givenSize;       // pixels, the size that the program asked for last
    QSize m_givenSizeBefore; // its predecessor may still come back from the window system
};

} // namespace orvanta
