// Frames of the player library's software renderer, rendered on a thread of their own.
#pragma once

#include "platform/media/picture_source.h"

#include <QSize>

#include <mpv/render.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace orvanta {

/// Renders straight into the image that the surface paints: no copy in between. While the target
/// size is empty, frames are taken from the player and passed over.
/// Must be destroyed before the player it renders for.
class MpvPictureSource : public PictureSource
{
    Q_OBJECT

public:
    /// Raises 53 when the library has no software renderer.
    explicit MpvPictureSource(mpv_handle* player);
    ~MpvPictureSource() override;

    void setTargetSize(QSize pixels) override;
    /// The frame that is shown, with its subtitles as they are now.
    void drawAgain();
    [[nodiscard]] QImage frame() const override;
    [[nodiscard]] bool hasPicture() const override { return m_hasPicture; }

    /// Said by the control when a clip opens or goes. Without a picture the frame is null.
    void setHasPicture(bool hasPicture);

private:
    static void frameWaiting(void* self);
    void renderFrames();
    bool waitForWork();
    void renderFrame();
    void renderInto(QImage& image);
    void skipFrame();
    void publish(QImage& image);
    Q_INVOKABLE void announceFrame();

    struct FreeContext
    {
        void operator()(mpv_render_context* context) const { mpv_render_context_free(context); }
    };

    std::unique_ptr<mpv_render_context, FreeContext> m_context;

    mutable std::mutex m_mutex; // guards what follows up to m_thread
    std::condition_variable m_work;
    QSize m_targetSize;
    QImage m_front;
    bool m_frameWaiting = false;
    bool m_drawAgain = false;
    bool m_closing = false;
    bool m_announced = false;

    QImage m_back;             // render thread only
    bool m_hasPicture = false; // interface thread only
    std::thread m_thread;
};

} // namespace orvanta
