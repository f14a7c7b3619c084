#include "platform/media/sound_peaks.h"

#include "core/log.h"
#include "platform/media/clip_input.h"
#include "platform/media/clip_sound.h"
#include "platform/media/container_formats.h"
#include "platform/media/peak_collector.h"

#include <QFileInfo>

#include <cerrno>

namespace orvanta {

constexpr qint64 kMillisecondsBetweenNews = 100;

namespace {

using PeakNews = std::function<void(Peaks)>;

/// Passes on what has been found, not more often than a person can see. The last pair may still
/// change; it goes with the next ones.
class PeakNewsTeller
{
public:
    explicit PeakNewsTeller(PeakNews tell)
        : m_tell(std::move(tell))
    {
        m_since.start();
    }

    void mayTell(const Peaks& peaks)
    {
        if (peaks.size() > m_told + 1 && m_since.hasExpired(kMillisecondsBetweenNews)) {
            m_since.restart();
            tellUpTo(peaks, peaks.size() - 1);
        }
    }
    void tellRest(const Peaks& peaks) { tellUpTo(peaks, peaks.size()); }

private:
    void tellUpTo(const Peaks& peaks, std::size_t end)
    {
        const auto at = [&](std::size_t i) { return peaks.begin() + static_cast<qsizetype>(i); };
        m_tell(Peaks(at(m_told), at(end)));
        m_told = end;
    }

    PeakNews m_tell;
    QElapsedTimer m_since;
    std::size_t m_told = 0;
};

} // namespace

static bool isStill(const struct stat& before, const std::optional<struct stat>& now)
{
    return now && now->st_size == before.st_size && now->st_mtim.tv_sec == before.st_mtim.tv_sec &&
           now->st_mtim.tv_nsec == before.st_mtim.tv_nsec;
}

static SoundReading decodePeaks(const QString& path, OpenedClip clip, JobLink& link,
                                PeakCollector& collector, PeakNewsTeller& teller)
{
    QString error;
    const std::unique_ptr<ClipInput> input = ClipInput::open(
        fileBytes(std::move(clip)), QFileInfo(path).fileName(), kContainerFormats,
        [&] { return link.isStopped(); }, error);
    if (!input) {
        return {.isWhole = false, .error = error};
    }
    return readSound(*input, [&](const AVFrame& frame, double seconds) {
        collector.add(frame, seconds);
        teller.mayTell(collector.peaks());
    });
}

static void findPeaks(const QString& path, const PeakCache& cache, JobLink& link,
                      const PeakNews& tell)
{
    OpenedClip clip = openClip(path);
    const struct stat before = clip.status;
    const bool isFile = clip.file.isOpen();
    if (const std::optional<Peaks> kept = isFile ? cache.find(before) : std::nullopt) {
        tell(*kept);
        return;
    }
    PeakCollector collector;
    PeakNewsTeller teller(tell);
    const SoundReading reading = decodePeaks(path, std::move(clip), link, collector, teller);
    if (link.isStopped()) {
        return;
    }
    if (!reading.error.isEmpty()) {
        qCInfo(logErrors, "no whole waveform of %ls: %ls", qUtf16Printable(path),
               qUtf16Printable(reading.error));
    }
    teller.tellRest(collector.peaks());
    if (reading.isWhole && isStill(before, statusOf(QFile::encodeName(path)))) {
        cache.keep(before, collector.peaks());
    }
}

SoundPeaks::SoundPeaks(const QString& folder)
    : m_cache(folder)
{}

void SoundPeaks::read(const QString& path)
{
    cancel();
    m_reading = true;
    m_job.start(*this, [this, path, cache = m_cache](JobLink& link) {
        // "this" is used only in what is delivered, which comes only while the object lives.
        findPeaks(path, cache, link, [this, &link](Peaks more) {
            link.deliver([this, more = std::move(more)] { append(more); });
        });
        link.deliver([this] {
            m_reading = false;
            Q_EMIT finished();
        });
    });
}

void SoundPeaks::cancel()
{
    m_job.stop();
    m_reading = false;
    m_peaks.clear();
}

void SoundPeaks::append(const Peaks& more)
{
    if (!more.empty()) {
        m_peaks.insert(m_peaks.end(), more.begin(), more.end());
        Q_EMIT grown();
    }
}

} // namespace orvanta
