#include "playback/engine_context.h"

#include "playback/brakes.h"

namespace orvanta {

EngineContext::EngineContext(Module1& sharedState, MediaControl& control, VideoWindow& videoWindow)
    : module(sharedState),
      video(videoWindow),
      operations(sharedState, control, videoWindow),
      findFile([](const QString& pathText, const LessonFolders& folders) {
          return findMediaFile(pathText, folders).file;
      })
{}

void EngineContext::supersede(FailedMedia takenAlong)
{
    ++m_generation;
    failedMedia = std::move(takenAlong);
    startFailed = false;
    closeWhenFree = false;
    onSuperseded();
}

Cursor EngineContext::cursor() const
{
    return {module.playlist.CurrentPacket, module.playlist.CurrentClip};
}

void EngineContext::setCursor(Cursor cursor)
{
    moveCursor(cursor, false);
}

void EngineContext::setCursorAhead(Cursor cursor)
{
    moveCursor(cursor, cursor.packet >= 1 && !player().isEmpty());
}

void EngineContext::setCursorToOpened()
{
    setCursorAhead({1, 1});
    if (!openedMeanwhile || !areBrakesPlaying()) {
        return;
    }
    const Int16 brake = brakeAt(currentPacket(), operations.secondsNow());
    if (brake < currentPacket().ClipCount) { // behind the end mark no line is on
        setCursor({1, brake});
    }
}

QString EngineContext::playingText() const
{
    return openedMeanwhile ? m_playingText : currentPacket().clip(cursor().clip).Text;
}

static bool isLine(const PlaylistState& playlist, Cursor place)
{
    return place.packet >= 1 && place.packet <= playlist.PlaylistCount && place.clip >= 1 &&
           place.clip <= playlist.packet(place.packet).ClipCount;
}

/// Who hears of the move asks at once whether the place is the one that plays.
void EngineContext::moveCursor(Cursor cursor, bool isAhead)
{
    module.playlist.CurrentPacket = cursor.packet;
    module.playlist.CurrentClip = cursor.clip;
    openedMeanwhile = isAhead;
    if (!isAhead && isLine(module.playlist, cursor)) {
        m_playingText = playingText();
    }
    listOver = false;
    onCursorMoved();
}

const PlaylistEntry& EngineContext::currentPacket() const
{
    const PlaylistState& playlist = module.playlist;
    return playlist.packet(playlist.CurrentPacket);
}

bool EngineContext::isCurrentPacketBraked() const
{
    const Int16 p = module.playlist.CurrentPacket;
    const bool exists = p >= 1 && p <= module.playlist.PlaylistCount;
    return exists && module.playlist.packet(p).HasBrakes;
}

bool EngineContext::areBrakesPlaying() const
{
    return areBrakesLoaded() && player().file == loaded.file;
}

bool EngineContext::areBrakesLoaded() const
{
    if (!isCurrentPacketBraked()) {
        return false;
    }
    const PlaylistEntry& packet = currentPacket();
    return packet.MediaFile == loaded.text && packet.Folder == loaded.folder;
}

LessonFolders EngineContext::foldersOf(const PlaylistEntry& packet) const
{
    const bool loose = packet.Folder.isEmpty();
    return {loose ? module.playlist.PacketFolder : packet.Folder, packet.PictureFolder};
}

int EngineContext::moveListCursor(Cursor place)
{
    const int header = view->headerLineOf(place.packet);
    const int line = header + place.clip.value();
    if (header < 0 || line >= view->lineCount()) {
        return -1;
    }
    view->setListIndex(line);
    return line;
}

} // namespace orvanta
