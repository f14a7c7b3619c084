// Which part of a clip a strip shows, and where.
#pragma once

namespace orvanta {

/// Places are logical pixels from the strip's left edge, moments seconds of the clip. Time runs
/// from left to right, whatever the language. Whatever is asked, the part shown lies within the
/// clip.
class StripScale
{
public:
    static constexpr double kMostZoom = 400;
    static constexpr double kInset = 4; // at both ends, so that marks there are whole

    /// Shows the whole clip. 0 or less: none.
    void setLength(double seconds);
    void setWidth(double pixels);

    [[nodiscard]] double length() const { return m_length; }
    /// 1 shows the whole clip.
    [[nodiscard]] double zoom() const { return m_zoom; }
    /// The moment at the left end.
    [[nodiscard]] double first() const { return m_first; }
    [[nodiscard]] double pixelsPerSecond() const;

    [[nodiscard]] double placeOf(double seconds) const;
    /// Within the clip.
    [[nodiscard]] double momentAt(double place) const;
    [[nodiscard]] bool shows(double seconds) const;

    /// The moment at this place stays there as far as possible.
    void zoomAround(double place, double factor);
    void scrollBy(double pixels);
    /// Turns the page: this moment stands near the left end.
    void turnTo(double seconds);

private:
    [[nodiscard]] double room() const;
    void scrollTo(double first);

    double m_length = 0;
    double m_width = 0;
    double m_zoom = 1;
    double m_first = 0;
};

} // namespace orvanta
