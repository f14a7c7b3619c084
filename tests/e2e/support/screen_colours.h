// What a picture of the screen is made of.
#pragma once

#include <QImage>

namespace orvanta::e2e {

/// How many pixels of a screen are of a kind.
struct Colours
{
    int red = 0;
    int black = 0;
    int others = 0;
};

[[nodiscard]] Colours coloursOf(const QImage& screen);

} // namespace orvanta::e2e
