// The main window's skin: its colours, measures, fonts and pictures, all in one place.
#pragma once

#include "playback/picture_look.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace orvanta::skin {

// One calm dark surface, one accent; what lies over the picture has them, too.
inline constexpr QColor kSurface = look::kCalm;         // the window
inline constexpr QColor kRaised = look::kRaised;        // buttons and boxes on it
inline constexpr QColor kRaisedHover{0x2d, 0x35, 0x44}; // under the pointer
inline constexpr QColor kRaisedDown{0x1f, 0x24, 0x2e};  // pressed
inline constexpr QColor kSunken{0x17, 0x1b, 0x22};      // the list
inline constexpr QColor kLine{0x2f, 0x37, 0x45};        // borders and grooves
inline constexpr QColor kEdge{0x3c, 0x46, 0x57};        // around menus, boxes under the pointer
inline constexpr QColor kGrip{0x46, 0x51, 0x65};        // a scroll bar under the pointer
inline constexpr QColor kKnob{0xff, 0xff, 0xff};        // a slider's, under the pointer
inline constexpr QColor kText = look::kText;
inline constexpr QColor kTextSoft = look::kTextSoft;  // clips below their packet's line
inline constexpr QColor kTextMuted{0x8e, 0x99, 0xab}; // what is off or of second rank
inline constexpr QColor kTreeLine{0x4a, 0x55, 0x67};  // the tree's prefixes
inline constexpr QColor kAccent = look::kAccent;
inline constexpr QColor kAccentHover = look::kAccentLight;
inline constexpr QColor kAccentDown{0x40, 0x99, 0x8d};
inline constexpr QColor kAccentDeep{0x2d, 0x6f, 0x67};     // the current line
inline constexpr QColor kAccentFaint = look::kAccentFaint; // an accent that is switched off
inline constexpr QColor kPlayOff{0x6f, 0x9a, 0x96};        // Play when it is switched off
inline constexpr QColor kMissed{0x4d, 0x2b, 0x33};         // a search that finds nothing
inline constexpr QColor kGone{0xe8, 0x86, 0x8a};           // what is not there any more
inline constexpr QColor kWarning = look::kWarning;         // Close under the pointer

// Logical pixels, on a grid of 8.
inline constexpr int kGrid = 8;
inline constexpr int kMargin = 2 * kGrid;
inline constexpr int kButtonSide = 32;
inline constexpr int kTransportSide = 40;
inline constexpr int kPlaySide = 48;
inline constexpr int kWindowButtonSide = 28;
inline constexpr int kClipHeight = 48;
inline constexpr int kWindowRadius = 10;
inline constexpr int kControlRadius = 6;
inline constexpr int kRowHeight = 13; // the list's tool tip reckons with exactly this height
inline constexpr int kListPadding = 6;

/// A font of this pixel size in the desktop's interface family.
[[nodiscard]] QFont interfaceFont(int pixelSize, bool bold = false);
/// Digits of one width, so that a running time does not tremble.
[[nodiscard]] QFont digitsFont(int pixelSize);
/// The largest font whose line fits into a row of the list.
[[nodiscard]] QFont listFont();

/// A picture of the skin's own family, drawn in one colour. side: logical pixels.
[[nodiscard]] QPixmap picture(const QString& name, const QColor& colour, int side,
                              qreal devicePixelRatio);
/// A resource below ":/orvanta/" ("orvanta", "splash") in its own colours. Sizes: logical pixels.
[[nodiscard]] QPixmap artwork(const QString& name, QSize size, qreal devicePixelRatio);
[[nodiscard]] QIcon applicationIcon();

/// The style sheet of everything that the skin does not paint itself.
[[nodiscard]] QString styleSheet();
/// The style sheet of a menu of commands, whatever its window: entries with marks and keys.
[[nodiscard]] QString commandMenuSheet();

} // namespace orvanta::skin
