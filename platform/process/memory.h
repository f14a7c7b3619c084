// What the program keeps of the memory that it no longer uses.
#pragma once

namespace orvanta {

/// Before anything else in a program that shows pictures. The C library raises its limit with each
/// large block that is freed, and from then on keeps pictures' memory among its small blocks,
/// scattered: after hours twice as much as is in use.
void giveLargeBlocksBack();

/// What lies free between small blocks, of every thread, goes back to the system. Takes a
/// millisecond or so; for a moment at which nothing runs.
void giveFreeMemoryBack();

} // namespace orvanta
