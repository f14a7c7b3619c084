// The bar's position slider: the whole clip, with its brakes as ticks.
#pragma once

#include "playback/current_line.h"

#include <QAbstractSlider>

#include <optional>
#include <vector>

namespace orvanta {

/// Its value is tenths of a second, for assistive technology. It moves by the program's hand or by
/// a drag, never by the wheel, which is the volume. Interface thread only.
class BarTrack : public QAbstractSlider
{
    Q_OBJECT

public:
    explicit BarTrack(QWidget* parent);

    /// Seconds. While the slider is held the position stays where the hand has it.
    void showTime(double position, double duration);
    void setMarks(std::vector<LessonMark> marks);
    [[nodiscard]] bool isHeld() const { return m_isHeld; }
    /// Where a moment of the clip is, pixels from the left.
    [[nodiscard]] int placeOf(double seconds) const;
    /// The mark at this place, null for none.
    [[nodiscard]] const LessonMark* markAt(int x) const;
    /// The moment at this place, seconds: a mark's own where there is one.
    [[nodiscard]] double momentAt(int x) const;

Q_SIGNALS:
    void dragged(double seconds); // nothing is sought yet
    void dropped(double seconds);
    void hovered(int x); // pixels from the left
    void left();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void drag(int x);
    void paintMarks(QPainter& painter) const;

    std::vector<LessonMark> m_marks;
    double m_position = 0; // seconds
    double m_duration = 0; // seconds
    bool m_isHeld = false;
};

} // namespace orvanta
