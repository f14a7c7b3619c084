#include "platform/media/mpv_picture_source.h"

#include <utility>

namespace orvanta {

MpvPictureSource::MpvPictureSource(mpv_handle* player)
    : m_renderer(std::make_unique<MpvRenderer>(player, QSize(), QImage(), [this] { frameDrawn(); }))
{}

MpvPictureSource::~MpvPictureSource() = default;

void MpvPictureSource::clear()
{
    hold();
    if (!m_keepsLastFrame) {
        m_renderer->dropFrame();
        Q_EMIT frameChanged();
    }
}

std::unique_ptr<MpvRenderer> MpvPictureSource::rendererFor(mpv_handle* player)
{
    return std::make_unique<MpvRenderer>(player, m_renderer->targetSize(), m_renderer->frame(),
                                         [this] { frameDrawn(); });
}

std::unique_ptr<MpvRenderer> MpvPictureSource::exchange(std::unique_ptr<MpvRenderer> renderer)
{
    m_renderer->fallSilent();
    return std::exchange(m_renderer, std::move(renderer));
}

/// Comes from the renderer's thread.
void MpvPictureSource::frameDrawn()
{
    if (!m_announced.exchange(true)) {
        QMetaObject::invokeMethod(this, &MpvPictureSource::announceFrame, Qt::QueuedConnection);
    }
}

void MpvPictureSource::announceFrame()
{
    m_announced = false;
    Q_EMIT frameChanged();
}

} // namespace orvanta
