#include "platform/media/mpv_picture_source.h"

#include <utility>

namespace orvanta {

MpvPictureSource::MpvPictureSource()
    : m_renderer(std::make_unique<MpvRenderer>())
{
    listen();
}

MpvPictureSource::~MpvPictureSource() = default;

void MpvPictureSource::listen()
{
    connect(m_renderer.get(), &PictureSource::frameChanged, this, &PictureSource::frameChanged);
    connect(m_renderer.get(), &PictureSource::rendererChanged, this,
            &PictureSource::rendererChanged);
    connect(m_renderer.get(), &MpvRenderer::failed, this, &MpvPictureSource::failed);
}

bool MpvPictureSource::start(std::unique_ptr<PictureRenderer> renderer)
{
    return m_renderer->start(std::move(renderer));
}

void MpvPictureSource::setTargetSize(QSize pixels)
{
    m_targetSize = pixels;
    m_renderer->setTargetSize(pixels);
}

void MpvPictureSource::setBlended(bool blended)
{
    m_isBlended = blended;
    m_renderer->setBlended(blended);
}

void MpvPictureSource::setKeepsLastFrame(bool keeps)
{
    m_keepsLastFrame = keeps;
    m_renderer->setKeepsLastFrame(keeps);
}

std::unique_ptr<MpvRenderer> MpvPictureSource::exchange()
{
    auto fresh = std::make_unique<MpvRenderer>();
    fresh->setBlended(m_isBlended);
    fresh->setTargetSize(m_targetSize);
    fresh->setKeepsLastFrame(m_keepsLastFrame);
    fresh->showFirst(m_renderer->frame());
    const bool wasOpenGl = m_renderer->isOpenGl();
    m_renderer->disconnect(this);
    m_renderer->fallSilent();
    auto before = std::exchange(m_renderer, std::move(fresh));
    listen();
    if (wasOpenGl) {
        Q_EMIT rendererChanged();
    }
    return before;
}

} // namespace orvanta
