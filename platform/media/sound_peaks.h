// The waveform of a clip, found while the program goes on.
#pragma once

#include "platform/media/background_job.h"
#include "platform/media/peak_cache.h"
#include "platform/media/peaks.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

namespace orvanta {

/// Reads one clip at a time on a thread of its own. Interface thread only, where nothing waits:
/// another clip, or the end of the object, leaves a reading behind at once.
class SoundPeaks : public QObject
{
    Q_OBJECT

public:
    /// folder: of what is kept from start to start.
    explicit SoundPeaks(const QString& folder = PeakCache::usualFolder());

    /// Reads the absolute path of a regular file; anything else, a clip without sound and one that
    /// is damaged have no peaks, or few, and the log says why. What was there before goes.
    void read(const QString& path);
    /// Forgets the clip.
    void cancel();

    /// As far as they are known.
    [[nodiscard]] const Peaks& peaks() const { return m_peaks; }
    [[nodiscard]] bool isReading() const { return m_reading; }

Q_SIGNALS:
    /// More is known; at most ten times a second.
    void grown();
    /// All is known. Follows the last grown().
    void finished();

private:
    void append(const Peaks& more);

    PeakCache m_cache;
    Peaks m_peaks;
    bool m_reading = false;
    BackgroundJob m_job; // ends before the rest goes
};

} // namespace orvanta
