// One way in which the player library draws its frames.
#pragma once

#include "platform/media/picture_source.h"

#include <mpv/render.h>

class QThread;

namespace orvanta {

/// One of the two, or none.
struct RenderedFrame
{
    QImage image;
    std::shared_ptr<const OpenGlFrame> texture;
};

struct FrameWish
{
    QSize size;          // device pixels
    bool blended = true; // as of PictureSource::setBlended
};

/// Owns the library's render context, of which a player can have one at a time: it must be gone
/// before the next one is made, and before the player. Made and destroyed on the interface thread.
class PictureRenderer
{
public:
    enum Result
    {
        Drawn,
        NotDrawn, // this time
        Lost,     // the driver draws no more
    };

    PictureRenderer() = default;
    virtual ~PictureRenderer() = default;
    PictureRenderer(const PictureRenderer&) = delete;
    PictureRenderer& operator=(const PictureRenderer&) = delete;

    /// Before the thread that renders is started.
    virtual void giveTo(QThread& /*thread*/) {}
    /// On that thread, as its first and its last. Null: this renderer cannot draw.
    [[nodiscard]] virtual mpv_render_context* enter() = 0;
    virtual void leave() {}
    /// On that thread. frame: one that was rendered before, or none; its memory is used again when
    /// nobody else holds it.
    [[nodiscard]] virtual Result render(const FrameWish& wish, RenderedFrame& frame) = 0;

    [[nodiscard]] virtual bool isOpenGl() const { return false; }
    /// On the interface thread: a copy of what render() has drawn.
    [[nodiscard]] virtual QImage copy(const RenderedFrame& frame) const { return frame.image; }
};

} // namespace orvanta
