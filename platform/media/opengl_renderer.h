// Frames of the player library's OpenGL renderer, each in a texture.
#pragma once

#include "platform/media/opengl_driver.h"
#include "platform/media/picture_renderer.h"

#include <memory>
#include <vector>

class QOpenGLExtraFunctions;

namespace orvanta {

/// Renders in a context of its own, which shares its textures with the windows' and is no matter of
/// theirs: they come, go and are made anew.
class OpenGlRenderer : public PictureRenderer
{
public:
    OpenGlRenderer(mpv_handle* player, std::shared_ptr<OpenGlDriver> driver, RendererChoice choice);
    ~OpenGlRenderer() override;

    void giveTo(QThread& thread) override;
    [[nodiscard]] mpv_render_context* enter() override;
    void leave() override;
    [[nodiscard]] Result render(const FrameWish& wish, RenderedFrame& frame) override;
    [[nodiscard]] bool isOpenGl() const override { return true; }
    [[nodiscard]] QImage copy(const RenderedFrame& frame) const override;

private:
    [[nodiscard]] bool createRenderContext();
    [[nodiscard]] bool hasAnswer();
    void takeFreeFrame(QSize size, RenderedFrame& frame);
    [[nodiscard]] std::shared_ptr<OpenGlFrame> newFrame(QSize size);
    void forgetFreeFrames(QSize otherThan);
    void renderInto(const OpenGlFrame& frame);
    [[nodiscard]] QOpenGLExtraFunctions& gl() { return *m_context->extraFunctions(); }

    mpv_handle* m_player;
    std::shared_ptr<OpenGlDriver> m_driver;
    RendererChoice m_choice;
    void* m_x11Display = nullptr;
    void* m_waylandDisplay = nullptr;
    QOffscreenSurface m_surface;
    std::unique_ptr<QOpenGLContext> m_context;
    QThread* m_home; // where the context was made and ends
    mpv_render_context* m_renderContext = nullptr;
    std::vector<std::shared_ptr<OpenGlFrame>> m_frames; // all there are
};

} // namespace orvanta
