// The strip that shows a clip's sound with its brakes, and moves them.
#pragma once

#include "model/texts.h"
#include "platform/media/peaks.h"
#include "platform/media/silences.h"
#include "window/strip_scale.h"
#include "window/waveform_flags.h"
#include "window/waveform_picture.h"

#include <QPointF>
#include <QWidget>

#include <optional>
#include <vector>

namespace orvanta {

/// Shows what it is told and asks for the rest: a brake that is dragged is where the hand has it
/// until it is let go, then where its owner says. Times are seconds of the clip, brakes count from
/// 0. Interface thread only.
class WaveformStrip : public QWidget
{
    Q_OBJECT

public:
    WaveformStrip(TextLanguage language, QWidget* parent);

    /// Another clip, or its length is known now: the whole of it is shown. 0: no clip.
    void setLength(double seconds);
    /// None: an even line.
    void setPeaks(const Peaks& peaks);
    /// In the order of time; what lies behind the clip's end is shown at its end. One that is
    /// dragged stays in the hand, unless there are more or fewer than before.
    void setBrakes(std::vector<WaveformBrake> brakes);
    /// -1: none.
    void setSelected(int index);
    /// What is playing or sought. A part that is zoomed in follows it as long as it shows it.
    void setPlace(double seconds);
    /// Shaded, to be looked at before marks are made of them.
    void setSilences(std::vector<SilentSpan> silences);

    [[nodiscard]] double length() const { return m_scale.length(); }
    [[nodiscard]] double place() const { return m_place; }
    [[nodiscard]] double zoom() const { return m_scale.zoom(); }
    [[nodiscard]] bool isDragging() const { return m_drag && m_drag->hasMoved; }
    /// Logical pixels from the left, of a moment; and back.
    [[nodiscard]] double placeOf(double seconds) const { return m_scale.placeOf(seconds); }
    [[nodiscard]] double momentAt(double place) const { return m_scale.momentAt(place); }
    /// "1:04 of 3:00, 5 marks", for assistive technology. The end mark does not count.
    [[nodiscard]] QString spokenValue() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// As a person would ask for it: placeAsked follows.
    void askPlace(double seconds);

Q_SIGNALS:
    /// The clip is to play from here.
    void placeAsked(double seconds);
    /// A brake was pressed.
    void brakeChosen(int index);
    /// Whole hundredths of a second, between its neighbours.
    void brakeDragging(int index, double seconds);
    void brakeDragged(int index, double seconds);
    /// It goes back to where it was.
    void brakeDragGivenUp(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Drag
    {
        int index = 0;
        double from = 0; // seconds
        double grip = 0; // pixels from the line to where it was taken
        double pressed = 0;
        bool hasMoved = false;
    };

    [[nodiscard]] std::vector<WaveformFlag> flags() const;
    [[nodiscard]] WaveformBrake& draggedBrake();
    [[nodiscard]] const WaveformBrake& draggedBrake() const;
    [[nodiscard]] double dragged(double x) const;
    void dragTo(double x);
    void giveUpDrag();
    void showCursor(const QPointF& pointer);
    void zoomAround(double x, double factor);
    [[nodiscard]] bool stepByKey(int key);
    void updateBetween(double from, double to);
    void paintGround(QPainter& painter) const;
    void paintSound(QPainter& painter);
    void paintPlace(QPainter& painter) const;
    void paintDraggedTime(QPainter& painter) const;

    TextLanguage m_language;
    StripScale m_scale;
    Peaks m_peaks;
    std::vector<WaveformBrake> m_brakes;
    std::vector<SilentSpan> m_silences;
    int m_selected = -1;
    double m_place = 0;
    std::optional<Drag> m_drag;
    WaveformPicture m_ahead;
    WaveformPicture m_played;
};

} // namespace orvanta
