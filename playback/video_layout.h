// Where the video window stands and how large it is: pure rules. Sizes and places in logical pixels
// unless they are named twips (15 to a logical pixel).
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace orvanta {

inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kOutOfSight = -100000; // twips: the left edge of a window that nobody can see

/// A size in twips as the window system takes it; halves upward.
[[nodiscard]] QSize pixelsOfTwips(QSize twips);

/// The picture's size, shrunk to fit into the room with its shape kept.
[[nodiscard]] QSize shrunkToFit(QSize picture, QSize room);

/// The size of a picture that fits in its window at the right or left of a neighbour, at the same
/// height: its own, or smaller in proportion, but not below 320 wide. Where even that does not fit,
/// its own. frame: what the window has around the picture.
[[nodiscard]] QSize shrunkToFitBeside(const QRect& neighbour, QSize picture, QSize frame,
                                      const QRect& screen);

/// Where a window of this size goes beside a neighbour: right of it, left, below, above, the first
/// place that lies wholly on the screen; else as near to the right edge as the screen allows.
[[nodiscard]] QPoint placeBeside(const QRect& neighbour, QSize window, const QRect& screen);

/// The nearest place to this one at which the window lies on the screen.
[[nodiscard]] QPoint insideScreen(QPoint place, QSize window, const QRect& screen);

} // namespace orvanta
