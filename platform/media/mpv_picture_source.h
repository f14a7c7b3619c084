// Frames of the player library, whichever of its players is at work.
#pragma once

#include "platform/media/mpv_renderer.h"
#include "platform/media/picture_source.h"

#include <QSize>

#include <atomic>
#include <memory>

namespace orvanta {

/// Passes on what the renderer of the player draws.
class MpvPictureSource : public PictureSource
{
    Q_OBJECT

public:
    /// Raises 53 when the library has no software renderer.
    explicit MpvPictureSource(mpv_handle* player);
    ~MpvPictureSource() override;

    void setTargetSize(QSize pixels) override { m_renderer->setTargetSize(pixels); }
    /// The frame that is shown, with its subtitles as they are now.
    void drawAgain() { m_renderer->drawAgain(); }
    [[nodiscard]] QImage frame() const override { return m_renderer->frame(); }
    [[nodiscard]] bool hasPicture() const override { return m_renderer->isOpen(); }
    void setKeepsLastFrame(bool keeps) override { m_keepsLastFrame = keeps; }

    // Said by the control.
    /// Another place or clip is on its way: what the library draws meanwhile (black, the picture
    /// before) is not shown, the frame stays as it is.
    void hold() { m_renderer->hold(); }
    /// What the library draws from now on is the picture of the clip that is open.
    void begin() { m_renderer->begin(); }
    /// There is no picture.
    void clear();

    /// A renderer for another player, with the frame that is shown; nothing is changed yet. Raises
    /// 53 as the constructor does.
    [[nodiscard]] std::unique_ptr<MpvRenderer> rendererFor(mpv_handle* player);
    /// Takes this one. Returns the one before, which says nothing any more; it must be destroyed
    /// before its player. Without one nothing may be called any more.
    std::unique_ptr<MpvRenderer> exchange(std::unique_ptr<MpvRenderer> renderer);

private:
    void frameDrawn();
    Q_INVOKABLE void announceFrame();

    std::atomic<bool> m_announced = false;
    bool m_keepsLastFrame = false;
    std::unique_ptr<MpvRenderer> m_renderer;
};

} // namespace orvanta
