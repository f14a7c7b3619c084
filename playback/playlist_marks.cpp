#include "playback/playlist_marks.h"

namespace orvanta {

static bool isChecked(const PlaybackView& view, int header, Int16 clip)
{
    const int line = header + clip.value();
    return header < 0 || line >= view.lineCount() || view.isLineChecked(line);
}

PlaylistShape shapeOf(const PlaylistState& playlist, const PlaybackView& view)
{
    PlaylistShape shape;
    shape.packetCount = playlist.PlaylistCount;
    shape.clipCount = [&playlist](Int16 p) { return playlist.packet(p).ClipCount; };
    shape.packetChecked = [&view](Int16 p) { return isChecked(view, view.headerLineOf(p), 0); };
    shape.clipChecked = [&view](Int16 p, Int16 q) {
        return isChecked(view, view.headerLineOf(p), q);
    };
    return shape;
}

} // namespace orvanta
