#include "tests/support/contrast.h"

#include <QHash>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace orvanta::test {

constexpr int kLeastInk = 8;     // pixels; fewer of a colour are where letter and ground mix
constexpr int kWhite = 250;      // of 255
constexpr int kOneOfTwenty = 20; // of an outline may be a corner

static double lightOf(const QColor& colour)
{
    const auto part = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
}

double contrastOf(const QColor& one, const QColor& other)
{
    const double a = lightOf(one) + 0.05;
    const double b = lightOf(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

using Counts = QHash<QRgb, int>;

static Counts coloursIn(const QImage& picture, int top, int bottom)
{
    Counts counts;
    for (int y = top; y <= bottom; ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    return counts;
}

static QRgb mostFrequent(const Counts& counts)
{
    QRgb most = 0;
    int best = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        if (it.value() > best) {
            most = it.key();
            best = it.value();
        }
    }
    return most;
}

static QRgb inkOn(QRgb ground, const Counts& counts)
{
    QRgb ink = ground;
    double best = 1;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        const double contrast = contrastOf(it.key(), ground);
        if (it.value() >= kLeastInk && contrast > best) {
            ink = it.key();
            best = contrast;
        }
    }
    return ink;
}

double textContrast(const QImage& picture, const QRect& place)
{
    const auto ratio = static_cast<int>(picture.devicePixelRatio());
    const QImage part = picture.copy(QRect(place.topLeft() * ratio, place.size() * ratio))
                            .convertToFormat(QImage::Format_RGB32);
    const Counts all = coloursIn(part, 0, part.height() - 1);
    const QRgb ink = inkOn(mostFrequent(all), all);
    if (ink == mostFrequent(all)) {
        return 1;
    }
    double least = std::numeric_limits<double>::infinity();
    for (int y = 0; y < part.height(); ++y) {
        Counts row = coloursIn(part, y, y);
        if (row.remove(ink) && !row.isEmpty()) { // the bar of a T may be longer than its ground
            least = std::min(least, contrastOf(ink, mostFrequent(row)));
        }
    }
    return std::isinf(least) ? 1 : least;
}

static bool isLetter(const QColor& pixel)
{
    return pixel.alpha() == 255 && std::min({pixel.red(), pixel.green(), pixel.blue()}) >= kWhite;
}

/// Of each pixel the distance to the nearest letter, aslant steps counted as straight ones; letters
/// themselves are 0.
static std::vector<int> distancesIn(const QImage& letters)
{
    const int width = letters.width();
    const int height = letters.height();
    std::vector<int> distances(std::size_t(width) * std::size_t(height), width + height);
    const auto at = [&](int x, int y) -> int& {
        return distances[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    };
    const auto look = [&](int x, int y, int dx, int dy) {
        const bool inside = x + dx >= 0 && x + dx < width && y + dy >= 0 && y + dy < height;
        at(x, y) = inside ? std::min(at(x, y), at(x + dx, y + dy) + 1) : at(x, y);
    };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            at(x, y) = isLetter(letters.pixelColor(x, y)) ? 0 : at(x, y);
            for (const QPoint step : {QPoint(-1, 0), {-1, -1}, {0, -1}, {1, -1}}) {
                look(x, y, step.x(), step.y());
            }
        }
    }
    for (int y = height - 1; y >= 0; --y) {
        for (int x = width - 1; x >= 0; --x) {
            for (const QPoint step : {QPoint(1, 0), {1, 1}, {0, 1}, {-1, 1}}) {
                look(x, y, step.x(), step.y());
            }
        }
    }
    return distances;
}

static QImage laidOn(const QColor& colour, const QImage& letters)
{
    QImage laid(letters.size(), QImage::Format_RGB32);
    laid.fill(colour);
    QPainter painter(&laid);
    painter.drawImage(laid.rect(), letters);
    return laid;
}

double outlineContrast(const QImage& letters, const QColor& picture, int distance)
{
    const std::vector<int> distances = distancesIn(letters);
    const QImage laid = laidOn(picture, letters);
    std::vector<double> contrasts;
    for (int y = 0; y < laid.height(); ++y) {
        for (int x = 0; x < laid.width(); ++x) {
            const auto place = std::size_t(y) * std::size_t(laid.width()) + std::size_t(x);
            if (distances[place] == distance) {
                contrasts.push_back(contrastOf(Qt::white, laid.pixelColor(x, y)));
            }
        }
    }
    std::ranges::sort(contrasts);
    return contrasts.empty() ? 1 : contrasts[contrasts.size() / kOneOfTwenty];
}

} // namespace orvanta::test
