// How large the main window's texts are: as the desktop's font wishes, times what the user has
// chosen.
#pragma once

namespace orvanta {

/// percent: as stored; whatever is far off counts as the nearest step.
[[nodiscard]] int largerZoom(int percent);
[[nodiscard]] int smallerZoom(int percent);
[[nodiscard]] int zoomInRange(int percent);
inline constexpr int kNormalZoom = 100;

/// 1 up to the usual size of the desktop's font, more for a larger one. pixels: its size.
[[nodiscard]] double zoomOfDesktop(int pixels);
/// The same for the desktop that the program runs on.
[[nodiscard]] double zoomOfDesktop();

} // namespace orvanta
