#include "window/editing_sound.h"

#include "model/editing/brake_times.h"
#include "playback/brakes.h"
#include "playback/lesson_controls.h"
#include "playback/playback_engine.h"
#include "window/silence_row.h"
#include "window/waveform_strip.h"

#include <algorithm>
#include <utility>

namespace orvanta {

/// Often enough for a place that moves, seldom enough to cost nothing.
constexpr int kFollowMilliseconds = 50;

EditingSound::EditingSound(EditingSoundPorts ports, QObject* parent)
    : QObject(parent),
      m_ports(ports)
{
    m_ports.strip.hide();
    m_ports.silences.hide();
    m_follow.setInterval(kFollowMilliseconds);
    connect(&m_follow, &QTimer::timeout, this, [this] { follow(); });
    connect(&m_peaks, &SoundPeaks::grown, this, [this] { showPeaks(); });
    connect(&m_peaks, &SoundPeaks::finished, this, [this] { showPeaks(); });
    connect(&m_suggestions, &MarkSuggestions::done, this,
            [this](const ClipTexts& texts) { takeTexts(texts); });
    connectStrip();
    connectSilences();
}

void EditingSound::connectStrip()
{
    connect(&m_ports.strip, &WaveformStrip::placeAsked, this,
            [this](double seconds) { m_ports.engine.seekTo(seconds); });
    connect(&m_ports.strip, &WaveformStrip::brakeChosen, this,
            [this](int index) { Q_EMIT brakeChosen(placeOf(index)); });
    connect(&m_ports.strip, &WaveformStrip::brakeDragged, this,
            [this](int index, double seconds) { Q_EMIT brakeMoved(placeOf(index), seconds); });
}

void EditingSound::connectSilences()
{
    connect(&m_ports.silences, &SilenceRow::changed, this, [this] { previewSilences(); });
    connect(&m_ports.silences, &SilenceRow::closed, this, [this] {
        m_ports.strip.setSilences({});
        m_ports.silences.hide();
    });
    connect(&m_ports.silences, &SilenceRow::taken, this, [this] {
        const std::vector<SuggestedMark> marks = marksAfter(m_silent, m_length);
        m_ports.strip.setSilences({});
        m_ports.silences.hide();
        Q_EMIT marksFound(marks);
    });
}

EditPlace EditingSound::placeOf(int index) const
{
    return {m_packet, m_brakeNumbers[static_cast<std::size_t>(index)]};
}

void EditingSound::setOn(bool on)
{
    m_on = on;
    m_ports.strip.setVisible(on);
    if (on) {
        m_follow.start();
        follow();
        return;
    }
    m_follow.stop();
    m_peaks.cancel();
    m_suggestions.cancel();
    m_file.clear();
    m_ports.silences.hide();
    m_ports.strip.setSilences({});
}

void EditingSound::follow()
{
    PlaybackOperations& operations = m_ports.engine.operations();
    operations.look();
    if (operations.player().file != m_file) {
        readClip();
    }
    const double length = operations.player().isLoaded() ? operations.durationSeconds() : 0;
    if (length != m_length) {
        m_length = length;
        m_ports.strip.setLength(length);
        showBrakes(m_selected);
    }
    m_ports.strip.setPlace(operations.secondsNow());
    Q_EMIT followed();
}

void EditingSound::readClip()
{
    m_file = m_ports.engine.operations().player().file;
    m_suggestions.cancel(); // they would be of another clip
    m_ports.strip.setPeaks({});
    m_ports.strip.setSilences({});
    m_ports.silences.hide();
    if (m_file.isEmpty()) {
        m_peaks.cancel();
    } else {
        m_peaks.read(m_file);
    }
    showBrakes(m_selected);
}

void EditingSound::showPeaks()
{
    m_ports.strip.setPeaks(m_peaks.peaks());
    if (m_ports.silences.isVisible()) {
        previewSilences();
    }
}

void EditingSound::refresh(EditPlace selected)
{
    if (m_on) {
        showBrakes(selected);
    }
}

/// What has no readable time has no place in the strip.
void EditingSound::takeBrakes(const PlaylistEntry& packet)
{
    const Int16 end = endMarkOf(packet);
    std::vector<WaveformBrake> brakes;
    for (int number = 1; number <= packet.ClipCount.value(); ++number) {
        const double seconds = timeOf(packet.clip(number));
        if (seconds >= 0) {
            brakes.push_back({seconds, end == number});
            m_brakeNumbers.push_back(number);
        }
    }
    m_ports.strip.setBrakes(std::move(brakes));
}

/// Those of the packet that plays, taken anew when they may be others: a packet can have thousands.
void EditingSound::showBrakes(EditPlace selected)
{
    m_selected = selected;
    const auto place = m_ports.engine.lesson().place();
    const int packet = place ? place->packet.value() : 0;
    if (packet != m_packet || m_revision != m_ports.playlist.revision) {
        m_packet = packet;
        m_revision = m_ports.playlist.revision;
        m_brakeNumbers.clear();
        if (packet >= 1 && m_ports.playlist.packet(packet).HasBrakes) {
            takeBrakes(m_ports.playlist.packet(packet));
        } else {
            m_ports.strip.setBrakes({});
        }
    }
    const auto chosen = std::find(m_brakeNumbers.begin(), m_brakeNumbers.end(), selected.line);
    const bool isThere = selected.packet == m_packet && chosen != m_brakeNumbers.end();
    m_ports.strip.setSelected(isThere ? static_cast<int>(chosen - m_brakeNumbers.begin()) : -1);
}

void EditingSound::suggestFrom(MarkSource source)
{
    m_source = source;
    if (!m_file.isEmpty()) {
        m_suggestions.read(m_file);
    }
}

void EditingSound::takeTexts(const ClipTexts& texts)
{
    const QString asked = m_file;
    follow();
    if (m_file != asked) {
        return; // another clip came meanwhile
    }
    std::vector<SuggestedMark> marks;
    if (m_source == MarkSource::Chapters) {
        marks = texts.chapters;
    } else if (!texts.subtitles.empty()) {
        const std::vector<SubtitleLine>& lines = texts.subtitles.front().lines;
        marks = marksOfLines(m_source == MarkSource::Sentences ? joinedToSentences(lines) : lines);
    }
    Q_EMIT marksFound(marks);
}

void EditingSound::openSilences()
{
    m_ports.silences.open();
    previewSilences();
}

void EditingSound::previewSilences()
{
    m_silent = silencesIn(m_peaks.peaks(), m_ports.silences.decibels(), m_ports.silences.seconds());
    m_ports.strip.setSilences(m_silent);
    m_ports.silences.setFound(static_cast<int>(marksAfter(m_silent, m_length).size()));
}

} // namespace orvanta
