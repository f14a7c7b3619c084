#include "window/text_zoom.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>
#include <array>

namespace orvanta {

constexpr std::array kSteps = {90, 100, 110, 125, 150, 175, 200, 250, 300}; // percent
constexpr int kUsualPixels = 14; // ten points at the usual resolution, rounded up
constexpr double kLargestOfDesktop = 2;

int zoomInRange(int percent)
{
    return std::clamp(percent, kSteps.front(), kSteps.back());
}

int largerZoom(int percent)
{
    const auto next = std::ranges::upper_bound(kSteps, percent);
    return next == kSteps.end() ? kSteps.back() : *next;
}

int smallerZoom(int percent)
{
    const auto next = std::ranges::lower_bound(kSteps, percent);
    return next == kSteps.begin() ? kSteps.front() : *(next - 1);
}

double zoomOfDesktop(int pixels)
{
    return std::clamp(double(pixels) / kUsualPixels, 1.0, kLargestOfDesktop);
}

double zoomOfDesktop()
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    return zoomOfDesktop(QFontInfo(font).pixelSize());
}

} // namespace orvanta
