// What every window of the program keeps to.
#pragma once

#include <QScreen>
#include <QSize>
#include <QString>

namespace orvanta {

/// A first size for the contents of a window, in pixels: the wanted one, or less where the screen
/// with its panels and the window's frame has no room for it.
[[nodiscard]] QSize firstSizeOn(const QScreen& screen, QSize wanted);

/// Whether what a window leaves see-through shows the windows behind it.
[[nodiscard]] bool areWindowsBlended();

/// The text as a tool tip shows it: signs that look like markup stay signs.
[[nodiscard]] QString plainToolTip(const QString& text);

} // namespace orvanta
