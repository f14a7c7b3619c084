#include "platform/media/mpv_renderer.h"

#include <QCoreApplication>

#include <array>
#include <utility>

namespace orvanta {

MpvRenderer::MpvRenderer()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(std::chrono::seconds(1));
    connect(&m_patience, &QTimer::timeout, this, [this] { missFirstFrame(); });
}

MpvRenderer::~MpvRenderer()
{
    if (!m_renderer) {
        return;
    }
    endThread();
    // The library's part is gone; what is the driver's goes where it was made.
    if (isOpenGl() && QThread::currentThread() != QCoreApplication::instance()->thread()) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [renderer = std::shared_ptr(std::move(m_renderer))] {},
            Qt::QueuedConnection);
    }
}

void MpvRenderer::fallSilent()
{
    m_patience.stop();
    blockSignals(true);
    moveToThread(nullptr);
}

bool MpvRenderer::start(std::unique_ptr<PictureRenderer> renderer)
{
    m_renderer = std::move(renderer);
    m_closing = false;
    m_entered = false;
    m_isLost = false;
    m_hasFailed = false;
    m_thread.reset(QThread::create([this] { renderFrames(); }));
    m_renderer->giveTo(*m_thread);
    m_thread->start();
    {
        std::unique_lock lock(m_mutex);
        m_work.wait(lock, [this] { return m_entered; });
        m_drawAgain = m_isOpen && !m_targetSize.isEmpty();
    }
    if (m_context == nullptr) {
        stop();
        return false;
    }
    m_work.notify_all();
    if (m_renderer->isOpenGl()) {
        Q_EMIT rendererChanged();
    }
    return true;
}

void MpvRenderer::stop()
{
    if (!m_renderer) {
        return;
    }
    m_patience.stop();
    const bool wasOpenGl = m_context != nullptr && isOpenGl();
    QImage last = lastFrame();
    endThread();
    m_renderer.reset();
    m_back = RenderedFrame();
    m_front.image = std::move(last);
    if (wasOpenGl) {
        Q_EMIT rendererChanged();
    }
}

void MpvRenderer::endThread()
{
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
        m_front = RenderedFrame();
        m_work.notify_all();
    }
    m_thread->wait();
    m_thread.reset();
}

/// Null where the driver that has it does not answer any more.
QImage MpvRenderer::lastFrame() const
{
    RenderedFrame front;
    {
        const std::lock_guard lock(m_mutex);
        front = m_isLost ? RenderedFrame() : m_front;
    }
    return m_renderer ? m_renderer->copy(front) : front.image;
}

void MpvRenderer::setTargetSize(QSize pixels)
{
    {
        const std::lock_guard lock(m_mutex);
        if (pixels != m_targetSize) {
            m_targetSize = pixels;
            m_drawAgain = !pixels.isEmpty();
            m_work.notify_all();
        }
        if (pixels.isEmpty() && !m_isOpen) {
            m_front = RenderedFrame();
        }
    }
    waitForFirstFrame();
}

void MpvRenderer::setBlended(bool blended)
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_isBlended, blended) != blended) {
        m_drawAgain = !m_targetSize.isEmpty();
        m_work.notify_all();
    }
}

void MpvRenderer::drawAgain()
{
    const std::lock_guard lock(m_mutex);
    m_drawAgain = !m_targetSize.isEmpty();
    m_work.notify_all();
}

QImage MpvRenderer::frame() const
{
    return lastFrame();
}

std::shared_ptr<const OpenGlFrame> MpvRenderer::texture() const
{
    const std::lock_guard lock(m_mutex);
    return m_front.texture;
}

void MpvRenderer::frameSwapped()
{
    if (isOpenGl() && m_context != nullptr) {
        mpv_render_context_report_swap(m_context);
    }
}

bool MpvRenderer::hasPicture() const
{
    const std::lock_guard lock(m_mutex);
    return m_isOpen;
}

void MpvRenderer::hold()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = false;
    m_beginsWithFrame = false;
    ++m_clip;
    m_hasDrawn = false;
    m_patience.stop();
}

/// The library has its picture already, so it is drawn again.
void MpvRenderer::begin()
{
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_isOpen, true)) {
            m_drawAgain = !m_targetSize.isEmpty();
            m_work.notify_all();
        }
    }
    waitForFirstFrame();
}

void MpvRenderer::beginWithNextFrame()
{
    const std::lock_guard lock(m_mutex);
    m_beginsWithFrame = true;
}

void MpvRenderer::clear()
{
    hold();
    if (!m_keepsLastFrame) {
        dropFrame();
    }
}

void MpvRenderer::dropFrame()
{
    {
        const std::lock_guard lock(m_mutex);
        m_front = RenderedFrame();
    }
    Q_EMIT frameChanged();
}

void MpvRenderer::waitForFirstFrame()
{
    const std::lock_guard lock(m_mutex);
    if (!isOpenGl() || !m_isOpen || m_hasDrawn || m_targetSize.isEmpty()) {
        m_patience.stop();
    } else if (!m_patience.isActive()) {
        m_patience.start();
    }
}

// Called on the library's threads, where nothing of it may be called.
void MpvRenderer::frameWaiting(void* self)
{
    auto* source = static_cast<MpvRenderer*>(self);
    const std::lock_guard lock(source->m_mutex);
    source->m_frameWaiting = true;
    source->m_work.notify_all();
}

void MpvRenderer::renderFrames()
{
    if (enterRenderer()) {
        while (waitForWork()) {
            renderFrame();
        }
        mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    }
    m_context = nullptr;
    m_back = RenderedFrame();
    m_renderer->leave();
}

bool MpvRenderer::enterRenderer()
{
    mpv_render_context* context = m_renderer->enter();
    if (context != nullptr) {
        mpv_render_context_set_update_callback(context, &MpvRenderer::frameWaiting, this);
    }
    const std::lock_guard lock(m_mutex);
    m_context = context;
    m_entered = true;
    m_work.notify_all();
    return context != nullptr;
}

/// Returns whether there is something to render; false ends the thread.
bool MpvRenderer::waitForWork()
{
    std::unique_lock lock(m_mutex);
    m_work.wait(lock, [this] { return m_frameWaiting || m_drawAgain || m_closing; });
    m_frameWaiting = false;
    return !m_closing;
}

void MpvRenderer::renderFrame()
{
    const bool newFrame = (mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME) != 0;
    FrameWish wish;
    bool redraw = false;
    quint64 clip = 0;
    {
        const std::lock_guard lock(m_mutex);
        redraw = std::exchange(m_drawAgain, false);
        m_isOpen = m_isOpen || (newFrame && std::exchange(m_beginsWithFrame, false));
        wish.size = m_isOpen && !m_isLost ? m_targetSize : QSize();
        wish.blended = m_isBlended;
        clip = m_clip;
    }
    if (!newFrame && !redraw) {
        return;
    }
    if (wish.size.isEmpty()) {
        skipFrame();
    } else {
        renderInto(wish, clip);
    }
}

void MpvRenderer::renderInto(const FrameWish& wish, quint64 clip)
{
    switch (m_renderer->render(wish, m_back)) {
    case PictureRenderer::Drawn:
        publish(clip);
        break;
    case PictureRenderer::NotDrawn:
        break;
    case PictureRenderer::Lost:
        loseDriver();
    }
}

void MpvRenderer::loseDriver()
{
    const std::lock_guard lock(m_mutex);
    m_isLost = true;
    QMetaObject::invokeMethod(
        this, [this] { announceFailure(QStringLiteral("its context is lost")); },
        Qt::QueuedConnection);
}

void MpvRenderer::skipFrame()
{
    int skip = 1;
    std::array<mpv_render_param, 2> parameters = {{
        {MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    mpv_render_context_render(m_context, parameters.data());
    frameSwapped();
}

void MpvRenderer::publish(quint64 clip)
{
    bool announce = false;
    {
        const std::lock_guard lock(m_mutex);
        if (clip == m_clip) {
            std::swap(m_front, m_back);
            announce = !std::exchange(m_announced, true);
        }
    }
    if (announce) {
        QMetaObject::invokeMethod(this, &MpvRenderer::announceFrame, Qt::QueuedConnection);
    } else {
        frameSwapped();
    }
}

void MpvRenderer::announceFrame()
{
    {
        const std::lock_guard lock(m_mutex);
        m_announced = false;
        m_hasDrawn = m_isOpen;
    }
    waitForFirstFrame();
    Q_EMIT frameChanged();
}

/// One that waits to be announced is there; only this thread was busy.
void MpvRenderer::missFirstFrame()
{
    bool isThere = false;
    {
        const std::lock_guard lock(m_mutex);
        isThere = m_announced;
    }
    if (!isThere) {
        announceFailure(QStringLiteral("its first frame does not come"));
    }
}

void MpvRenderer::announceFailure(const QString& reason)
{
    if (m_renderer && !std::exchange(m_hasFailed, true)) {
        Q_EMIT failed(reason);
    }
}

} // namespace orvanta
