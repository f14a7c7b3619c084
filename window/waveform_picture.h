// The picture of a waveform.
#pragma once

#include "platform/media/peaks.h"
#include "window/strip_scale.h"

#include <QColor>
#include <QPixmap>
#include <QSize>

class QPainter;

namespace orvanta {

/// Draws the peaks of the part that is shown as thin bars, whole device pixels each, in one colour,
/// and keeps the picture until something else is to be shown.
class WaveformPicture
{
public:
    explicit WaveformPicture(const QColor& colour)
        : m_colour(colour)
    {}

    /// The peaks are others now.
    void forget() { m_picture = {}; }
    /// size: logical pixels.
    [[nodiscard]] const QPixmap& of(const Peaks& peaks, const StripScale& scale, QSize size,
                                    qreal devicePixelRatio);

private:
    void draw(const Peaks& peaks);
    void drawBars(QPainter& painter, const Peaks& peaks, QSize size) const;

    QColor m_colour;
    StripScale m_scale;
    QSize m_size;
    qreal m_ratio = 1;
    QPixmap m_picture;
};

} // namespace orvanta
