// The position slider of the brake preview.
#pragma once

#include <QSlider>

namespace orvanta {

/// Seconds from 0 to the clip's length; without a length the user cannot move it. Only what the
/// user does is signalled.
class TimeSlider : public QSlider
{
    Q_OBJECT

public:
    explicit TimeSlider(QWidget* parent = nullptr);

    /// Seconds. A value beyond the length is kept as it is; the handle stands at the end.
    [[nodiscard]] double seconds() const { return m_seconds; }
    void setSeconds(double seconds);
    void setLength(double seconds);

Q_SIGNALS:
    /// held: the handle is being dragged; the same place follows with held false when it is let go.
    void moved(double seconds, bool held);

protected:
    // Arrow 0.1 s, Shift+arrow 1 s, Page 10 s, Home, End; wheel 1 s.
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    // A press takes the handle to the pointer.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] double length() const;
    [[nodiscard]] double secondsAt(int x) const;
    void moveByUser(double seconds, bool held);

    bool m_isSetting = false; // the value is being changed here, not by assistive technology
    double m_seconds = 0;
};

} // namespace orvanta
