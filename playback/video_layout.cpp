#include "playback/video_layout.h"

#include <algorithm>

namespace orvanta {

namespace {

constexpr int kGap = 8;             // pixels between the two windows
constexpr int kNarrowPicture = 320; // pixels; a smaller one is no pleasure to look at

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

QSize shrunkToFitBeside(const QRect& neighbour, QSize picture, QSize frame, const QRect& screen)
{
    const int atRight = screen.x() + screen.width() - neighbour.x() - neighbour.width() - kGap;
    const int atLeft = neighbour.x() - kGap - screen.x();
    const int below = screen.y() + screen.height() - neighbour.y();
    const QSize room = QSize(std::max(atRight, atLeft), below) - frame;
    const bool fits = picture.boundedTo(room) == picture;
    // A gap at the screen's edge, too: how thick a frame is shows only after the window has one.
    const QSize withGap = room - QSize(kGap, kGap);
    if (fits || withGap.width() < 1 || withGap.height() < 1) {
        return picture;
    }
    const QSize shrunk = shrunkToFit(picture, withGap);
    return shrunk.width() >= kNarrowPicture ? shrunk : picture;
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
