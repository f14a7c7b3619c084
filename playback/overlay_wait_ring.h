// The ring that shows how long the lesson still waits.
#pragma once

#include "model/texts.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace orvanta {

/// A ring that runs out while the lesson waits; closed while it waits for a key.
class WaitRing : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kSide = 20; // pixels

    WaitRing(TextLanguage language, QWidget* parent);

    void setLanguage(TextLanguage language);
    /// seconds: real time; 0 until a key.
    void begin(double seconds);
    void end();

Q_SIGNALS:
    /// Pressed: the lesson is to go on.
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] double left() const;

    double m_seconds = 0;
    QElapsedTimer m_since;
    QTimer m_frames; // a handful each second is enough for the eye
};

} // namespace orvanta
