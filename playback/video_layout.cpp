#include "playback/video_layout.h"

#include <algorithm>

namespace orvanta {

namespace {

constexpr int kGap = 8; // pixels between the two windows

} // namespace

QSize pixelsOfTwips(QSize twips)
{
    const auto pixels = [](int length) { return (length + kTwipsPerPixel / 2) / kTwipsPerPixel; };
    return {pixels(twips.width()), pixels(twips.height())};
}

QSize shrunkToFit(QSize picture, QSize room)
{
    const bool fits = picture.width() <= room.width() && picture.height() <= room.height();
    return fits ? picture : picture.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QPoint placeBeside(const QRect& neighbour, QSize window, const QRect& screen)
{
    const QPoint places[] = {
        {neighbour.x() + neighbour.width() + kGap, neighbour.y()},
        {neighbour.x() - kGap - window.width(), neighbour.y()},
        {neighbour.x(), neighbour.y() + neighbour.height() + kGap},
        {neighbour.x(), neighbour.y() - kGap - window.height()},
    };
    for (const QPoint& place : places) {
        if (screen.contains(QRect(place, window))) {
            return place;
        }
    }
    return insideScreen(places[0], window, screen);
}

QPoint insideScreen(QPoint place, QSize window, const QRect& screen)
{
    const auto inside = [](int start, int length, int from, int room) {
        return std::max(from, std::min(start, from + room - length));
    };
    return {inside(place.x(), window.width(), screen.x(), screen.width()),
            inside(place.y(), window.height(), screen.y(), screen.height())};
}

} // namespace orvanta
