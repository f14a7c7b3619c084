#include "platform/media/software_renderer.h"

#include "core/log.h"
#include "core/run_time_error.h"

#include <algorithm>
#include <array>
#include <cstdlib>

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
/// takes it for the opacity. Asked for an opacity, the library leaves its black bars without one,
/// and whether a picture has holes of its own is told only after its first frame; so it is set
/// here, where it matters. Sixteen pixels at once, as lines are aligned: it is done to each frame.
static void makeOpaque(QImage& image)
{
    using Pixels = quint32 __attribute__((vector_size(kAlignment)));
    auto* pixels = reinterpret_cast<Pixels*>(image.bits());
    const auto count = static_cast<std::size_t>(image.sizeInBytes()) / sizeof(Pixels);
    std::for_each(pixels, pixels + count, [](Pixels& some) { some |= 0xff000000U; });
}

SoftwareRenderer::SoftwareRenderer(mpv_handle* player)
    : m_context(createContext(player))
{}

PictureRenderer::Result SoftwareRenderer::render(const FrameWish& wish, RenderedFrame& frame)
{
    // The surface may still be painting the image of the frame before.
    if (frame.image.size() != wish.size || !frame.image.isDetached()) {
        frame.image = newImage(wish.size);
    }
    if (frame.image.isNull()) {
        return NotDrawn;
    }
    renderInto(frame.image);
    if (wish.blended) {
        makeOpaque(frame.image);
    }
    return Drawn;
}

void SoftwareRenderer::renderInto(QImage& image)
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
}

} // namespace orvanta
