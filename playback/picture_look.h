// The colours of what lies over the picture: the same calm dark and one accent as the main window.
#pragma once

#include <QColor>

namespace orvanta::look {

inline constexpr QColor kGround{0x0b, 0x0d, 0x11}; // below signs, bar and outlines
inline constexpr QColor kCalm{0x1b, 0x1f, 0x27};   // the ground of a text without a picture
inline constexpr QColor kText{0xe6, 0xea, 0xf2};
inline constexpr QColor kTextMuted{0x8e, 0x99, 0xab}; // what is of second rank
inline constexpr QColor kAccent{0x4f, 0xb3, 0xa5};
inline constexpr QColor kSoftGround{0x0b, 0x0d, 0x11, 184}; // a sign's, 72 %

} // namespace orvanta::look
