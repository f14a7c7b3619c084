// The colours of what lies over the picture: the same calm dark and one accent as the main window.
#pragma once

#include <QColor>

namespace orvanta::look {

inline constexpr QColor kGround{0x0b, 0x0d, 0x11};      // below signs, bar and outlines
inline constexpr QColor kCalm{0x1b, 0x1f, 0x27};        // the ground of a text without a picture
inline constexpr QColor kRaised{0x23, 0x29, 0x35};      // a bubble on the bar
inline constexpr QColor kWarning{0xb8, 0x4a, 0x4f};     // the end mark
inline constexpr QColor kAccentFaint{0x25, 0x43, 0x45}; // the ground of what is switched on
inline constexpr QColor kOnAccent{0x10, 0x23, 0x1f};    // a sign on the accent
inline constexpr QColor kText{0xe6, 0xea, 0xf2};
inline constexpr QColor kTextSoft{0xc3, 0xca, 0xd6}; // what is of second rank
inline constexpr QColor kAccent{0x4f, 0xb3, 0xa5};
inline constexpr QColor kAccentLight{0x66, 0xc7, 0xb9}; // the accent as a text on darker accents
inline constexpr QColor kGroove{0xff, 0xff, 0xff, 64};  // of the position, 25 %
inline constexpr QColor kBarGround{0x0b, 0x0d, 0x11, 224};
inline constexpr QColor kSoftGround{0x0b, 0x0d, 0x11,
                                    209}; // a sign's, 82 %: the accent can be read on white

} // namespace orvanta::look
