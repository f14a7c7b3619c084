// How many pictures the packet editor's preview shows while its slider is dragged.
#pragma once

#include <QString>

namespace orvanta {

struct EditorServices;

struct DragFigures
{
    double shownPerSecond = 0;     // pictures that reached the surface
    double differentPerSecond = 0; // of those, pictures unlike the one before
    double restMilliseconds = 0;   // from the handle's rest to the exact picture there
};

/// Makes the clip when it is not there yet: 720p25, a key frame every 250 frames, 20 minutes. False
/// when it cannot be made.
bool makeDragClip(const QString& clip);

/// Opens the clip in a packet editor and drags the slider's handle steadily from its beginning to
/// its end.
DragFigures dragPreview(EditorServices& services, const QString& clip);

} // namespace orvanta
