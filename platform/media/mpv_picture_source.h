// Frames of the player library, whichever of its players is at work.
#pragma once

#include "platform/media/mpv_renderer.h"
#include "platform/media/picture_source.h"

#include <QSize>

#include <chrono>
#include <memory>

namespace orvanta {

/// Passes on what the renderer of the player draws.
class MpvPictureSource : public PictureSource
{
    Q_OBJECT

public:
    MpvPictureSource();
    ~MpvPictureSource() override;

    // As those of MpvRenderer.
    bool start(std::unique_ptr<PictureRenderer> renderer);
    void stop() { m_renderer->stop(); }
    void drawAgain() { m_renderer->drawAgain(); }
    void hold() { m_renderer->hold(); }
    void begin() { m_renderer->begin(); }
    void beginWithNextFrame() { m_renderer->beginWithNextFrame(); }
    void clear() { m_renderer->clear(); }
    void setPatience(std::chrono::milliseconds time) { m_renderer->setPatience(time); }

    void setTargetSize(QSize pixels) override;
    void setBlended(bool blended) override;
    [[nodiscard]] QImage frame() const override { return m_renderer->frame(); }
    [[nodiscard]] bool hasPicture() const override { return m_renderer->hasPicture(); }
    void setKeepsLastFrame(bool keeps) override;
    [[nodiscard]] bool isOpenGl() const override { return m_renderer->isOpenGl(); }
    [[nodiscard]] std::shared_ptr<const OpenGlFrame> texture() const override
    {
        return m_renderer->texture();
    }
    void frameSwapped() override { m_renderer->frameSwapped(); }

    /// Takes a renderer that draws nothing yet, for another player, and shows the last frame until
    /// that does. Returns the one before, which has fallen silent and must be destroyed before its
    /// player.
    [[nodiscard]] std::unique_ptr<MpvRenderer> exchange();

Q_SIGNALS:
    void failed(const QString& reason);

private:
    void listen();

    QSize m_targetSize;
    bool m_isBlended = true;
    bool m_keepsLastFrame = false;
    std::unique_ptr<MpvRenderer> m_renderer;
};

} // namespace orvanta
