// The editing mode's part in the sound: the strip below the list, and marks that the clip suggests.
#pragma once

#include "model/editing/edit_step.h"
#include "platform/media/mark_suggestions.h"
#include "platform/media/silences.h"
#include "platform/media/sound_peaks.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

namespace orvanta {

class PlaybackEngine;
class SilenceRow;
class WaveformStrip;

/// What it works with. All of it outlives it.
struct EditingSoundPorts
{
    const PlaylistState& playlist;
    PlaybackEngine& engine;
    WaveformStrip& strip;
    SilenceRow& silences;
};

/// What a clip can suggest marks from.
enum class MarkSource
{
    Chapters,
    Subtitles,
    Sentences, // of the subtitles
};

/// Follows the clip that plays while the mode is on. Interface thread only.
class EditingSound : public QObject
{
    Q_OBJECT

public:
    EditingSound(EditingSoundPorts ports, QObject* parent);

    void setOn(bool on);
    /// What is shown of brakes and clip is looked at anew. selected: the list's current line.
    void refresh(EditPlace selected);
    /// Reads the clip; marksFound follows.
    void suggestFrom(MarkSource source);
    /// Opens the row in which silences are looked for.
    void openSilences();

Q_SIGNALS:
    void brakeMoved(orvanta::EditPlace brake, double seconds);
    void brakeChosen(orvanta::EditPlace brake);
    /// Many times a second: the clip may be another one by now, or none.
    void followed();
    /// May be none.
    void marksFound(const std::vector<orvanta::SuggestedMark>& marks);

private:
    void connectStrip();
    void connectSilences();
    void follow();
    void readClip();
    void showPeaks();
    void showBrakes(EditPlace selected);
    void takeBrakes(const PlaylistEntry& packet);
    void previewSilences();
    void takeTexts(const ClipTexts& texts);
    [[nodiscard]] EditPlace placeOf(int index) const;

    EditingSoundPorts m_ports;
    SoundPeaks m_peaks;
    MarkSuggestions m_suggestions;
    QTimer m_follow; // while the mode is on
    QString m_file;  // whose peaks are shown
    double m_length = 0;
    EditPlace m_selected;
    int m_packet = 0;                // of the brakes in the strip, from 1
    int m_revision = -1;             // of the playlist, when they were taken from it
    std::vector<int> m_brakeNumbers; // from 1, of each brake in the strip
    std::vector<SilentSpan> m_silent;
    MarkSource m_source = MarkSource::Chapters;
    bool m_on = false;
};

} // namespace orvanta
