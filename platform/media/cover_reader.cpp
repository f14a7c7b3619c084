#include "platform/media/cover_reader.h"

#include "core/error_boundary.h"
#include "core/log.h"
#include "platform/media/mpv_handle.h"
#include "platform/media/mpv_nodes.h"
#include "platform/media/mpv_options.h"

#include <QFile>

#include <utility>

namespace orvanta {

constexpr int kPatienceMilliseconds = 10000;
constexpr quint64 kPicture = 1;

// A picture that is larger is not decoded.
static const MpvOptionList kCoverOptions = {{"audio-display", "embedded-first"},
                                            {"aid", "no"},
                                            {"vo", "null"},
                                            {"ao", "null"},
                                            {"vd-lavc-threads", "1"},
                                            {"vd-lavc-o", "max_pixels=67108864"}};

static std::unique_ptr<MpvHandle> startReader(const QString& path)
{
    auto mpv = std::make_unique<MpvHandle>();
    applyMpvOptions(*mpv, kCoverOptions);
    mpv->initialize();
    mpv->command({"loadfile", QFile::encodeName(path)}, 0);
    return mpv;
}

/// The pixels of the library's answer, four bytes each, copied.
static QImage pictureOf(const mpv_node& answer)
{
    const mpv_node* data = fieldOf(answer, "data");
    const qint64 width = numberOf(answer, "w");
    const qint64 height = numberOf(answer, "h");
    const qint64 stride = numberOf(answer, "stride");
    const bool isWhole = data != nullptr && data->format == MPV_FORMAT_BYTE_ARRAY && width > 0 &&
                         height > 0 && stride / 4 >= width &&
                         data->u.ba->size >= static_cast<std::size_t>(stride * height) &&
                         textOf(answer, "format") == u"bgr0";
    return isWhole ? QImage(static_cast<const uchar*>(data->u.ba->data), int(width), int(height),
                            qsizetype(stride), QImage::Format_RGB32)
                         .copy()
                   : QImage();
}

CoverReader::CoverReader()
{
    m_patience.setInterval(kPatienceMilliseconds);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { finish({}); });
}

CoverReader::~CoverReader() = default;

void CoverReader::read(const QString& path)
{
    cancel();
    resumeNext("cover", [&] { m_mpv = startReader(path); });
    if (m_mpv) {
        connect(m_mpv.get(), &MpvHandle::eventsWaiting, this, [this] { serveEvents(); });
        m_patience.start();
    }
}

void CoverReader::cancel()
{
    m_patience.stop();
    m_mpv.reset();
}

void CoverReader::serveEvents()
{
    while (const mpv_event* event = m_mpv ? m_mpv->nextEvent() : nullptr) {
        if (event->event_id == MPV_EVENT_PLAYBACK_RESTART) {
            m_mpv->command({"screenshot-raw", "video"}, kPicture);
        } else if (event->event_id == MPV_EVENT_COMMAND_REPLY &&
                   event->reply_userdata == kPicture) {
            finish(pictureOf(static_cast<const mpv_event_command*>(event->data)->result));
        } else if (event->event_id == MPV_EVENT_END_FILE) {
            finish({});
        }
    }
}

/// The player serves an event of its own as yet, and goes a turn of the event loop later.
void CoverReader::finish(const QImage& cover)
{
    m_patience.stop();
    m_mpv->disconnect(this);
    m_mpv.release()->deleteLater();
    if (cover.isNull()) {
        qCInfo(logErrors, "no cover in use");
    }
    Q_EMIT done(cover);
}

} // namespace orvanta
