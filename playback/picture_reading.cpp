#include "playback/picture_reading.h"

#include "core/log.h"
#include "platform/file_types/document_picture.h"
#include "platform/media/first_answer.h"

#include <chrono>
#include <memory>
#include <optional>

namespace orvanta {

/// So long nobody notices that a window stands still.
constexpr std::chrono::milliseconds kAtOnce(150);
/// So long a picture may take.
constexpr std::chrono::seconds kLongestReading(10);

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
    const auto handing = std::make_shared<FirstAnswer<QImage>>();
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
