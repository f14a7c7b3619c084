// A small movement of the mouse cursor, so that the system sees its user.
#pragma once

namespace orvanta {

/// Moves the cursor one pixel down and straight back, where the display system lets a program do
/// so; elsewhere it does nothing.
void nudgePointer();

} // namespace orvanta
