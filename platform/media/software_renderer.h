// Frames of the player library's software renderer.
#pragma once

#include "platform/media/picture_renderer.h"

#include <memory>

namespace orvanta {

struct FreeRenderContext
{
    void operator()(mpv_render_context* context) const { mpv_render_context_free(context); }
};

/// Renders straight into the image that the surface paints: no copy in between.
class SoftwareRenderer : public PictureRenderer
{
public:
    /// Raises 53 when the library has no software renderer.
    explicit SoftwareRenderer(mpv_handle* player);

    [[nodiscard]] mpv_render_context* enter() override { return m_context.get(); }
    [[nodiscard]] Result render(const FrameWish& wish, RenderedFrame& frame) override;

private:
    void renderInto(QImage& image);

    std::unique_ptr<mpv_render_context, FreeRenderContext> m_context;
};

} // namespace orvanta
