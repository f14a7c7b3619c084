// Sound and subtitles as a person steers them.
#pragma once

#include "model/module1.h"
#include "platform/media/media_control.h"
#include "playback/track_choice.h"

#include <QObject>

#include <vector>

namespace orvanta {

/// What can be chosen, as a menu says it.
struct TrackEntry
{
    QString text; // "English — Commentary"
    bool chosen = false;
};

/// A choice is kept by its language, in the settings, and holds for each clip that has it; another
/// one plays as it says. Must hear of a clip that opens before it is set running: the sound would
/// change while it is heard. Interface thread only.
class TrackControls : public QObject
{
    Q_OBJECT

public:
    TrackControls(const Module1& module, MediaControl& control);

    /// Of the clip that is open.
    [[nodiscard]] std::vector<TrackEntry> sounds() const;
    /// "Off" first, files that are not yet added last; empty where there is nothing but "Off".
    [[nodiscard]] std::vector<TrackEntry> subtitles() const;
    /// Entries as above, counted from 0; what is not there is passed over.
    void chooseSound(std::size_t entry);
    void chooseSubtitles(std::size_t entry);

Q_SIGNALS:
    /// There are other entries, or another one is chosen.
    void changed();

private:
    using Tracks = std::vector<MediaTrack>;

    void clipOpened();
    void add(const SubtitleFile& file);
    void keep(QString TrackWish::*which, const QString& language);
    [[nodiscard]] Tracks tracksOf(MediaTrack::Kind kind) const;
    /// Those that are not among the player's tracks.
    [[nodiscard]] std::vector<SubtitleFile> filesToAdd() const;
    [[nodiscard]] QString textOf(const MediaTrack& track) const;
    [[nodiscard]] TextLanguage language() const;

    const Module1& m_module;
    MediaControl& m_control;
    std::vector<SubtitleFile> m_files; // beside the clip that is open
};

} // namespace orvanta
