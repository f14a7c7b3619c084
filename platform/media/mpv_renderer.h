// Frames of one player, drawn by the player library's software renderer on a thread of their own.
#pragma once

#include <QImage>
#include <QSize>

#include <mpv/render.h>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace orvanta {

/// Renders straight into the image that the surface paints: no copy in between. While the target
/// size is empty, frames are taken from the player and passed over.
/// Must be destroyed before the player it renders for, which waits for that player. Any thread.
class MpvRenderer
{
public:
    /// first: the frame that is shown until there is another. frameDrawn: called on a thread of the
    /// renderer's. Raises 53 when the library has no software renderer.
    MpvRenderer(mpv_handle* player, QSize targetSize, QImage first,
                std::function<void()> frameDrawn);
    ~MpvRenderer();
    MpvRenderer(const MpvRenderer&) = delete;
    MpvRenderer& operator=(const MpvRenderer&) = delete;

    [[nodiscard]] QSize targetSize() const;
    void setTargetSize(QSize pixels);
    /// The frame that is shown, with its subtitles as they are now.
    void drawAgain();
    [[nodiscard]] QImage frame() const;
    void dropFrame();
    /// Whether what the library draws is shown.
    [[nodiscard]] bool isOpen() const;
    void hold();
    void begin();
    /// frameDrawn is not called any more once this has returned.
    void fallSilent();

private:
    static void frameWaiting(void* self);
    void renderFrames();
    bool waitForWork();
    void renderFrame();
    void renderInto(QImage& image);
    void skipFrame();
    void publish(QImage& image, quint64 clip);

    struct FreeContext
    {
        void operator()(mpv_render_context* context) const { mpv_render_context_free(context); }
    };

    std::unique_ptr<mpv_render_context, FreeContext> m_context;

    mutable std::mutex m_mutex; // guards what follows up to m_back
    std::condition_variable m_work;
    QSize m_targetSize;
    QImage m_front;
    std::function<void()> m_frameDrawn;
    bool m_frameWaiting = false;
    bool m_drawAgain = false;
    bool m_closing = false;
    bool m_isOpen = false; // frames are shown
    quint64 m_clip = 0;    // one whose drawing began before a hold is not

    QImage m_back; // render thread only
    std::thread m_thread;
};

} // namespace orvanta
