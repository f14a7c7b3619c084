// The memory of small blocks.
#pragma once

namespace orvanta {

/// Gives the system back what lies free between blocks in use, which the C library keeps otherwise:
/// for after something large has been built from many small pieces. Takes milliseconds; any thread.
void giveFreeMemoryBack();

} // namespace orvanta
