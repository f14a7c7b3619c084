#include "window/waveform_picture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <span>

namespace orvanta {

// A quiet clip is drawn larger, but its noise is not made to look like speech.
static double gainOf(const Peaks& peaks)
{
    constexpr double kMostGain = 4;
    int loudest = 1;
    for (const PeakPair& pair : peaks) {
        loudest = std::max({loudest, -static_cast<int>(pair.low), static_cast<int>(pair.high)});
    }
    return std::min(127.0 / loudest, kMostGain);
}

/// The extremes from one moment to another; at least the one pair in which they lie.
static PeakPair extremesBetween(const Peaks& peaks, double from, double to)
{
    const auto count = static_cast<double>(peaks.size());
    const double first = std::clamp(std::floor(from * kPeaksPerSecond), 0.0, count);
    const double end = std::clamp(std::ceil(to * kPeaksPerSecond), first, count);
    PeakPair extremes;
    for (const PeakPair& pair : std::span(peaks).subspan(static_cast<std::size_t>(first),
                                                         static_cast<std::size_t>(end - first))) {
        extremes.low = std::min(extremes.low, pair.low);
        extremes.high = std::max(extremes.high, pair.high);
    }
    return extremes;
}

static bool isSameView(const StripScale& a, const StripScale& b)
{
    return a.first() == b.first() && a.pixelsPerSecond() == b.pixelsPerSecond();
}

const QPixmap& WaveformPicture::of(const Peaks& peaks, const StripScale& scale, QSize size,
                                   qreal devicePixelRatio)
{
    if (m_picture.isNull() || !isSameView(m_scale, scale) || m_size != size ||
        m_ratio != devicePixelRatio) {
        m_scale = scale;
        m_size = size;
        m_ratio = devicePixelRatio;
        draw(peaks);
    }
    return m_picture;
}

// In device pixels: a bar that lies between two of them would be a smear. Bars stand at the same
// moments however the strip is scrolled, so that they do not flicker.
void WaveformPicture::draw(const Peaks& peaks)
{
    const QSize size = (QSizeF(m_size) * m_ratio).toSize();
    m_picture = QPixmap(size);
    m_picture.fill(Qt::transparent);
    if (m_scale.pixelsPerSecond() > 0) {
        QPainter painter(&m_picture);
        drawBars(painter, peaks, size);
    }
    m_picture.setDevicePixelRatio(m_ratio);
}

void WaveformPicture::drawBars(QPainter& painter, const Peaks& peaks, QSize size) const
{
    const int pitch = std::max(2, static_cast<int>(std::lround(2 * m_ratio)));
    const double seconds = pitch / (m_scale.pixelsPerSecond() * m_ratio); // of a bar
    const double zero = m_scale.placeOf(0) * m_ratio;
    const double end = std::min<double>(m_scale.placeOf(m_scale.length()) * m_ratio, size.width());
    const double half = size.height() / 2.0;
    const double gain = gainOf(peaks) * half / 127;
    const int wide = peaks.empty() ? pitch : std::max(pitch / 2, 1); // without sound a line
    const auto first = static_cast<qint64>(std::max(0.0, std::floor(-zero / pitch)));
    const auto count = static_cast<qint64>(std::ceil((end - zero) / pitch));
    for (qint64 bar = first; bar < count; ++bar) {
        const auto number = static_cast<double>(bar);
        const PeakPair pair = extremesBetween(peaks, number * seconds, (number + 1) * seconds);
        const double top = std::floor(half - pair.high * gain);
        const double bottom = std::max(std::ceil(half - pair.low * gain), top + m_ratio);
        painter.fillRect(QRectF(std::floor(zero + number * pitch), top, wide, bottom - top),
                         m_colour);
    }
}

} // namespace orvanta
