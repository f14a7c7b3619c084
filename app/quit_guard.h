// A limit for the way out of the program.
#pragma once

namespace orvanta {

/// From now on the process lives for two more seconds at most. Called when nothing is left to be
/// saved: what may still wait is the player, for a disk that never answers, and a process that
/// waits for it would hold its files and its place on the bus for ever.
void leaveSoon(int exitStatus);

} // namespace orvanta
