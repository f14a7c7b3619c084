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
    [[nodiscard]] bool hasPicture() const override;
    void setKeepsLastFrame(bool keeps) override { m_keepsLastFrame = keeps; }

    // Said by the control.
    /// Another place or clip is on its way: what the library draws meanwhile (black, the picture
    /// before) is not shown, the frame stays as it is.
    void hold();
    /// What the library draws from now on is the picture of the clip that is open.
    void begin();
    /// There is no picture.
    void clear();

private:
    static void frameWaiting(void* self);
    void renderFrames();
    bool waitForWork();
    void renderFrame();
    void renderInto(QImage& image);
    void skipFrame();
    void publish(QImage& image, quint64 clip);
    void dropFrame();
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
    bool m_isOpen = false; // frames are shown
    quint64 m_clip = 0;    // one whose drawing began before a hold is not

    QImage m_back;                 // render thread only
    bool m_keepsLastFrame = false; // interface thread only
    std::thread m_thread;
};

} // namespace orvanta
