// What the desktop's media controls see of the program, as one comparable snapshot, and what they
// may ask of it.
#pragma once

#include "playback/keyboard.h"

#include <QVariantMap>

#include <functional>

namespace orvanta {

/// Everything that the adaptors work with. All of it outlives them.
struct MprisPorts
{
    Module1& module;
    PlaybackEngine& engine;
    MediaControl& control;
    FullScreenControl& screen;
    PlaybackView& view;
    std::function<void()> quit;
    std::function<void(const QString& path)> open;
};

/// The object path of clip q of packet p. "/org/mpris/MediaPlayer2/TrackList/NoTrack" for none.
[[nodiscard]] QString trackPath(Int16 p, Int16 q);
/// The way back; packet 0 for anything that is no track of ours.
[[nodiscard]] Cursor placeOfTrack(const QString& path);

/// "Playing", "Paused" or "Stopped".
[[nodiscard]] QString playbackStatus(MediaControl::State state);

/// Metadata of a place in the playlist: track id, title (the clip's or brake's text), album (the
/// packet's title), art (the packet's picture) and, for the current place, the length. Empty
/// outside the playlist.
[[nodiscard]] QVariantMap trackMetadata(const MprisPorts& ports, Cursor place);

/// Whole microseconds, as the interface counts them.
[[nodiscard]] qlonglong microseconds(double seconds);

} // namespace orvanta
