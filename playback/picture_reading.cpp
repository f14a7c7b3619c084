#include "playback/picture_reading.h"

#include "core/log.h"
#include "platform/file_types/document_picture.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace orvanta {

/// So long nobody notices that a window stands still.
constexpr std::chrono::milliseconds kAtOnce(150);
/// So long a picture may take.
constexpr std::chrono::seconds kLongestReading(10);

namespace {

/// Where the background leaves the picture for whoever still waits at once.
class Handing
{
public:
    void put(const QImage& image)
    {
        const std::lock_guard lock(m_mutex);
        m_image = image;
        m_isThere.notify_all();
    }

    [[nodiscard]] std::optional<QImage> waitFor(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        m_isThere.wait_for(lock, patience, [this] { return m_image.has_value(); });
        return m_image;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_isThere;
    std::optional<QImage> m_image;
};

} // namespace

PictureReading::PictureReading(QObject* parent)
    : QObject(parent)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(kLongestReading);
}

void PictureReading::read(const QString& file, QSize within,
                          const std::function<void(const QImage&)>& show)
{
    stop();
    if (file.isEmpty()) {
        return show({});
    }
    const auto handing = std::make_shared<Handing>();
    const auto showLater = [this, show](const QImage& image) {
        m_limit.stop();
        show(image);
    };
    m_job.start(*this, [file, within, handing, showLater](JobLink& link) {
        const QImage image =
            readDocumentPicture(file, within, [&link] { return link.isStopped(); });
        handing->put(image);
        link.deliver([showLater, image] { showLater(image); });
    });
    if (const std::optional<QImage> image = handing->waitFor(kAtOnce)) {
        m_job.stop();
        return show(*image);
    }
    m_limit.callOnTimeout(this, [this, file, show] {
        qCInfo(logErrors, "the picture takes too long: %ls", qUtf16Printable(file));
        stop();
        show({});
    });
    m_limit.start();
}

void PictureReading::stop()
{
    m_job.stop();
    m_limit.stop();
    m_limit.disconnect(this);
}

} // namespace orvanta
