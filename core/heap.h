// The memory of small blocks.
#pragma once

namespace orvanta {

/// Before anything else in a program that shows pictures. The C library raises its limit with each
/// large block that is freed, and from then on keeps pictures' memory among its small blocks,
/// scattered: after hours twice as much as is in use.
void giveLargeBlocksBack();

/// Gives the system back what lies free between blocks in use, which the C library keeps otherwise:
/// for after something large has been built from many small pieces. Takes milliseconds; any thread.
void giveFreeMemoryBack();

} // namespace orvanta
