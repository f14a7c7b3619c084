// Frames of one player of the library, rendered on a thread of their own.
#pragma once

#include "platform/media/picture_renderer.h"

#include <QSize>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace orvanta {

/// Which frames are rendered and shown, whatever renders them. While the target size is empty,
/// frames are taken from the player and passed over.
/// Must be destroyed before the player it renders for, which waits for that player: once it has
/// fallen silent, on any thread.
class MpvRenderer : public PictureSource
{
    Q_OBJECT

public:
    MpvRenderer();
    ~MpvRenderer() override;

    /// A frame to show until there is another.
    void showFirst(QImage frame) { m_front.image = std::move(frame); }
    /// Says nothing any more, and is asked nothing any more.
    void fallSilent();

    /// From now on this renderer draws; there must be none. False when it cannot: then there is
    /// none.
    bool start(std::unique_ptr<PictureRenderer> renderer);
    /// Ends the one that draws, if any, and with it the library's output of pictures. Its last
    /// frame stays as a copy where one can be had.
    void stop();

    void setTargetSize(QSize pixels) override;
    void setBlended(bool blended) override;
    /// The frame that is shown, with its subtitles as they are now.
    void drawAgain();
    [[nodiscard]] QImage frame() const override;
    [[nodiscard]] bool hasPicture() const override;
    void setKeepsLastFrame(bool keeps) override { m_keepsLastFrame = keeps; }
    [[nodiscard]] bool isOpenGl() const override { return m_renderer && m_renderer->isOpenGl(); }
    [[nodiscard]] std::shared_ptr<const OpenGlFrame> texture() const override;
    void frameSwapped() override;

    // Said by the control.
    /// Another place or clip is on its way: what the library draws meanwhile (black, the picture
    /// before) is not shown, the frame stays as it is.
    void hold();
    /// What the library draws from now on is the picture of the clip that is open.
    void begin();
    /// The same from the next frame on that the library has not drawn yet.
    void beginWithNextFrame();
    /// There is no picture.
    void clear();

    /// How long an OpenGL renderer may take for the first frame of a clip.
    void setPatience(std::chrono::milliseconds time) { m_patience.setInterval(time); }

Q_SIGNALS:
    /// The renderer draws no more, or never began to. Once for each; from the event loop.
    void failed(const QString& reason);

private:
    static void frameWaiting(void* self);
    void renderFrames();
    bool enterRenderer();
    bool waitForWork();
    void renderFrame();
    void renderInto(const FrameWish& wish, quint64 clip);
    void skipFrame();
    void loseDriver();
    [[nodiscard]] QImage lastFrame() const;
    void endThread();
    void publish(quint64 clip);
    void dropFrame();
    void waitForFirstFrame();
    void missFirstFrame();
    void announceFrame();
    void announceFailure(const QString& reason);

    std::unique_ptr<PictureRenderer> m_renderer;
    mpv_render_context* m_context = nullptr; // of the renderer, while its thread runs

    mutable std::mutex m_mutex; // guards what follows up to m_back
    std::condition_variable m_work;
    QSize m_targetSize;
    bool m_isBlended = true;
    RenderedFrame m_front;
    bool m_frameWaiting = false;
    bool m_drawAgain = false;
    bool m_closing = false;
    bool m_entered = false;
    bool m_announced = false;
    bool m_isLost = false;
    bool m_isOpen = false; // frames are shown
    bool m_beginsWithFrame = false;
    quint64 m_clip = 0; // one whose drawing began before a hold is not

    RenderedFrame m_back;          // render thread only
    bool m_keepsLastFrame = false; // interface thread only, as what follows
    bool m_hasDrawn = false;       // something of the clip that is open
    bool m_hasFailed = false;
    QTimer m_patience; // for the first frame
    std::unique_ptr<QThread> m_thread;
};

} // namespace orvanta
