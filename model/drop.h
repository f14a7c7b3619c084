// Files dropped on the playlist: what is appended, and in which order.
#pragma once

#include "model/module1.h"

#include <QStringList>

namespace orvanta {

struct DropResult
{
    bool groupDropped = false;
    // The first line that was added and can be played, both from 1; packet 0: none.
    Int16 firstPacket = 0;
    Int16 firstClip = 0;
};

/// Adds the dropped files, last to first, to what is open. Endings are compared with case: "vxg" a
/// group, "vxl" a packet, anything else a loose clip for the packet that was last when the drop
/// began. A folder gives its files that match typePattern, in name order, as loose clips. Raises
/// 13, 9 or 6 for a packet whose counts are none; files visited before have been appended by then.
DropResult applyDrop(PlaylistState& playlist, const QStringList& files, const QString& typePattern);

} // namespace orvanta
