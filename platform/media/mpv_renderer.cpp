#include "platform/media/mpv_renderer.h"

#include "core/log.h"
#include "core/run_time_error.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace orvanta {

// The scalers copy the whole frame once more when lines do not begin at such addresses.
constexpr std::size_t kAlignment = 64;
constexpr std::size_t kBytesPerPixel = 4;

static char* mutableText(const char* text)
{
    return const_cast<char*>(text); // the library takes its parameters without const
}

static mpv_render_context* createContext(mpv_handle* player)
{
    std::array<mpv_render_param, 2> parameters = {{
        {MPV_RENDER_PARAM_API_TYPE, mutableText(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    mpv_render_context* context = nullptr;
    const int result = mpv_render_context_create(&context, player, parameters.data());
    if (result < 0) {
        qCCritical(logErrors, "the player library cannot draw: %s", mpv_error_string(result));
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return context;
}

static QImage newImage(QSize size)
{
    const std::size_t stride =
        (static_cast<std::size_t>(size.width()) * kBytesPerPixel + kAlignment - 1) / kAlignment *
        kAlignment;
    void* pixels = std::aligned_alloc(kAlignment, stride * static_cast<std::size_t>(size.height()));
    if (pixels == nullptr) {
        return {};
    }
    return {
        static_cast<uchar*>(pixels), size.width(), size.height(), static_cast<qsizetype>(stride),
        QImage::Format_RGB32,        std::free,    pixels};
}

/// The library leaves the fourth byte of a pixel as it comes, and a compositor that blends windows
/// takes it for the opacity. Sixteen pixels at once, as lines are aligned: it is done to each
/// frame.
static void makeOpaque(QImage& image)
{
    using Pixels = quint32 __attribute__((vector_size(kAlignment)));
    auto* pixels = reinterpret_cast<Pixels*>(image.bits());
    const auto count = static_cast<std::size_t>(image.sizeInBytes()) / sizeof(Pixels);
    std::for_each(pixels, pixels + count, [](Pixels& some) { some |= 0xff000000U; });
}

MpvRenderer::MpvRenderer(mpv_handle* player, QSize targetSize, QImage first,
                         std::function<void()> frameDrawn)
    : m_context(createContext(player)),
      m_targetSize(targetSize),
      m_front(std::move(first)),
      m_frameDrawn(std::move(frameDrawn))
{
    mpv_render_context_set_update_callback(m_context.get(), &MpvRenderer::frameWaiting, this);
    m_thread = std::thread([this] { renderFrames(); });
}

MpvRenderer::~MpvRenderer()
{
    mpv_render_context_set_update_callback(m_context.get(), nullptr, nullptr);
    {
        const std::lock_guard lock(m_mutex);
        m_closing = true;
    }
    m_work.notify_one();
    m_thread.join();
}

QSize MpvRenderer::targetSize() const
{
    const std::lock_guard lock(m_mutex);
    return m_targetSize;
}

void MpvRenderer::setTargetSize(QSize pixels)
{
    const std::lock_guard lock(m_mutex);
    if (pixels != m_targetSize) {
        m_targetSize = pixels;
        m_drawAgain = !pixels.isEmpty();
        m_work.notify_one();
    }
    if (pixels.isEmpty() && !m_isOpen) {
        m_front = QImage();
    }
}

void MpvRenderer::drawAgain()
{
    const std::lock_guard lock(m_mutex);
    m_drawAgain = !m_targetSize.isEmpty();
    m_work.notify_one();
}

QImage MpvRenderer::frame() const
{
    const std::lock_guard lock(m_mutex);
    return m_front;
}

bool MpvRenderer::isOpen() const
{
    const std::lock_guard lock(m_mutex);
    return m_isOpen;
}

void MpvRenderer::hold()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = false;
    ++m_clip;
}

/// The library has its picture already, so it is drawn again.
void MpvRenderer::begin()
{
    const std::lock_guard lock(m_mutex);
    if (!std::exchange(m_isOpen, true)) {
        m_drawAgain = !m_targetSize.isEmpty();
        m_work.notify_one();
    }
}

void MpvRenderer::dropFrame()
{
    const std::lock_guard lock(m_mutex);
    m_front = QImage();
}

void MpvRenderer::fallSilent()
{
    const std::lock_guard lock(m_mutex);
    m_frameDrawn = nullptr;
}

// Called on the library's threads, where nothing of it may be called.
void MpvRenderer::frameWaiting(void* self)
{
    auto* source = static_cast<MpvRenderer*>(self);
    const std::lock_guard lock(source->m_mutex);
    source->m_frameWaiting = true;
    source->m_work.notify_one();
}

void MpvRenderer::renderFrames()
{
    while (waitForWork()) {
        renderFrame();
    }
}

/// Returns whether there is something to render; false ends the thread.
bool MpvRenderer::waitForWork()
{
    std::unique_lock lock(m_mutex);
    m_work.wait(lock, [this] { return m_frameWaiting || m_drawAgain || m_closing; });
    return !m_closing;
}

void MpvRenderer::renderFrame()
{
    QSize size;
    bool redraw = false;
    quint64 clip = 0;
    {
        const std::lock_guard lock(m_mutex);
        m_frameWaiting = false;
        redraw = std::exchange(m_drawAgain, false);
        size = m_isOpen ? m_targetSize : QSize();
        clip = m_clip;
    }
    const bool newFrame =
        (mpv_render_context_update(m_context.get()) & MPV_RENDER_UPDATE_FRAME) != 0;
    if (!newFrame && !redraw) {
        return;
    }
    if (size.isEmpty()) {
        skipFrame();
        return;
    }
    // The surface may still be painting the image of the frame before.
    if (m_back.size() != size || !m_back.isDetached()) {
        m_back = newImage(size);
    }
    if (!m_back.isNull()) {
        renderInto(m_back);
        publish(m_back, clip);
    }
}

void MpvRenderer::renderInto(QImage& image)
{
    std::array<int, 2> size = {image.width(), image.height()};
    auto stride = static_cast<std::size_t>(image.bytesPerLine());
    std::array<mpv_render_param, 5> parameters = {{
        {MPV_RENDER_PARAM_SW_SIZE, size.data()},
        {MPV_RENDER_PARAM_SW_FORMAT, mutableText("bgr0")},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride},
        {MPV_RENDER_PARAM_SW_POINTER, image.bits()},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    mpv_render_context_render(m_context.get(), parameters.data());
    makeOpaque(image);
}

void MpvRenderer::skipFrame()
{
    int skip = 1;
    std::array<mpv_render_param, 2> parameters = {{
        {MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    mpv_render_context_render(m_context.get(), parameters.data());
}

void MpvRenderer::publish(QImage& image, quint64 clip)
{
    const std::lock_guard lock(m_mutex);
    if (clip == m_clip) {
        std::swap(m_front, image);
        if (m_frameDrawn) {
            m_frameDrawn();
        }
    }
}

} // namespace orvanta
