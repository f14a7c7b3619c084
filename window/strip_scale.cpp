#include "window/strip_scale.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

void StripScale::setLength(double seconds)
{
    m_length = std::isfinite(seconds) ? std::max(seconds, 0.0) : 0.0;
    m_zoom = 1;
    m_first = 0;
}

void StripScale::setWidth(double pixels)
{
    m_width = pixels;
    scrollTo(m_first);
}

double StripScale::room() const
{
    return std::max(m_width - 2 * kInset, 1.0);
}

double StripScale::pixelsPerSecond() const
{
    return m_length > 0 ? room() * m_zoom / m_length : 0.0;
}

double StripScale::placeOf(double seconds) const
{
    return kInset + (seconds - m_first) * pixelsPerSecond();
}

double StripScale::momentAt(double place) const
{
    const double scale = pixelsPerSecond();
    return scale > 0 ? std::clamp(m_first + (place - kInset) / scale, 0.0, m_length) : 0.0;
}

bool StripScale::shows(double seconds) const
{
    constexpr double kHair = 1e-6; // pixels
    const double place = placeOf(seconds);
    return place >= kInset - kHair && place <= kInset + room() + kHair;
}

void StripScale::zoomAround(double place, double factor)
{
    const double moment = momentAt(place);
    m_zoom = std::clamp(m_zoom * factor, 1.0, kMostZoom);
    const double scale = pixelsPerSecond();
    scrollTo(scale > 0 ? moment - (place - kInset) / scale : 0.0);
}

void StripScale::scrollBy(double pixels)
{
    const double scale = pixelsPerSecond();
    scrollTo(scale > 0 ? m_first + pixels / scale : 0.0);
}

void StripScale::turnTo(double seconds)
{
    constexpr double kBefore = 1.0 / 8; // of the strip: what was just heard
    const double shown = m_length / m_zoom;
    scrollTo(seconds - shown * kBefore);
}

void StripScale::scrollTo(double first)
{
    m_first = std::clamp(first, 0.0, m_length - m_length / m_zoom);
}

} // namespace orvanta
