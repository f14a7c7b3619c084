// All shared state of the program: one instance, passed by reference.
#pragma once

#include "core/playlist_entry.h"
#include "model/settings.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace orvanta {

/// What is open and what is playing. Indices count from 1; 0 means none.
struct PlaylistState
{
    std::vector<PlaylistEntry> Playlist; // entry 1 is Playlist[0]
    Int16 PlaylistCount;
    Int16 CurrentPacket;
    Int16 CurrentClip;
    QString Document;          // path of the packet or group that is all of it; empty: none is
    QString PacketFolder;      // folder of the packet opened last, with its separator
    Flag16 OpenedFromExplorer; // files were handed over by the shell
    int revision = 0;          // counts the changes of what is open

    /// Packet p, counted from 1. Raises 9 outside the playlist.
    [[nodiscard]] PlaylistEntry& packet(Int16 p);
    [[nodiscard]] const PlaylistEntry& packet(Int16 p) const;
    /// Whole paths of the packets and groups that all of it comes from, each once.
    [[nodiscard]] QStringList documents() const;
    /// Clips or brakes of all packets together.
    [[nodiscard]] qsizetype entryCount() const;
};

/// The shared playback record: the cached copy of the player and one-shot change flags.
struct PlaybackRecord
{
    QString CachedPosition; // seconds, decimal text
    int CachedState = -1;   // -1 not loaded, 0 stopped, 1 paused, 2 running
    QString CachedDuration; // seconds, decimal text
    QString CachedBookmark; // seconds, decimal text
    Int16 CachedVolume;     // the volume slider's scale, 0 to 100
    Flag16 BookmarkPending;
    Flag16 StateChanged;
    Flag16 PositionChanged;
    Flag16 BookmarkChanged;
    Flag16 VolumeChanged;
    Flag16 ClipEnded;
    Flag16 VideoWindowShown;
};

/// The video window's public fields that mirror the player. Written by its event handlers.
struct VideoMirror
{
    int VideoState = -1;
    QString VideoPosition; // seconds, decimal text
    QString VideoBookmark; // seconds, decimal text
    Int16 VideoVolume;     // the volume slider's scale
    Flag16 RequestPending; // keys of the video window changed VideoState or VideoVolume
    Flag16 VideoEnded;
    Flag16 VideoPositionUpdated;
};

/// One-shot requests from the tray menu, taken by the tick.
struct TrayRequests
{
    Flag16 TrayPlayRequest;
    Flag16 TrayPauseRequest;
    Flag16 TrayStopRequest;
    Flag16 TrayNextRequest;
    Flag16 TrayPreviousRequest;
    Flag16 TrayCloseRequest;
    Flag16 TrayRestoreRequest;
};

/// What the pickers return.
struct PickerResults
{
    QStringList PickedFiles = {QString()}; // entries from 1; entry 0 is always empty
    QString SaveFileName;
};

struct Module1
{
    QString ApplicationFolder;
    QString IniPath;
    Int16 Language;      // 1 English, 2 Russian, 0 not chosen
    QString TypePattern; // "*.avi;*.mpg"
    QStringList
        HandedOver; // lines of launches that the settings could not take; the tick opens them
    PlaylistState playlist;
    PlaybackRecord playback;
    TrayRequests tray;
    PickerResults picker;
    Flag16 EditorDone;
    Int16 SliderValue; // position slider, percent of the clip

    [[nodiscard]] Settings settings() const { return Settings(IniPath); }
    [[nodiscard]] bool optionIsOn(Option option) const { return settings().isOn(option); }
};

} // namespace orvanta
