// A slider of the skin that knows what the user does with it.
#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace orvanta {

/// A value from 0 to 100. The signals speak of the user alone; setValue is silent. A press on the
/// groove jumps there. Wheel and keys have no release: each step is a change, a commit and an end.
class SkinSlider : public QWidget
{
    Q_OBJECT

public:
    /// Where the accent-coloured part of the groove begins.
    enum class Fill
    {
        FromLeft,
        FromCentre,
    };

    SkinSlider(Fill fill, double step, QWidget* parent);

    [[nodiscard]] double value() const { return m_value; }
    /// Moves the slider without a signal; the value is kept within 0 to 100.
    void setValue(double value);
    /// One step by key or assistive technology, as the user's own.
    void stepTo(double value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user changed the value.
    void userChanged(double value);
    /// The user's change is to take effect.
    void committed(double value);
    /// The user let go. Follows every change, also one that was not committed.
    void interactionEnded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QRectF groove() const;
    [[nodiscard]] double knobCentre() const;
    [[nodiscard]] double valueAt(double x) const;
    void dragTo(double value);
    void endDrag(bool commit);
    void sayValue();
    void paintGroove(QPainter& painter) const;
    void paintKnob(QPainter& painter) const;

    Fill m_fill;
    double m_step;
    double m_value = 0;
    double m_grip = 0;    // pixels from the knob's centre to where it was taken
    QElapsedTimer m_said; // since assistive technology was told the value
    int m_wheel = 0;      // eighths of a degree not yet turned into steps
    bool m_dragging = false;
    bool m_changed = false;
};

} // namespace orvanta
