#include "platform/media/opengl_renderer.h"

#include "core/log.h"

#include <QGuiApplication>
#include <QOpenGLExtraFunctions>
#include <QThread>

#include <mpv/render_gl.h>

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

static void* x11Display()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->display();
}

// Answers null without a current context.
static void* functionOfDriver(void* /*nothing*/, const char* name)
{
    const QOpenGLContext* context = QOpenGLContext::currentContext();
    return context == nullptr ? nullptr : reinterpret_cast<void*>(context->getProcAddress(name));
}

OpenGlRenderer::OpenGlRenderer(mpv_handle* player, std::shared_ptr<OpenGlDriver> driver,
                               RendererChoice choice)
    : m_player(player),
      m_driver(std::move(driver)),
      m_choice(std::move(choice)),
      m_x11Display(x11Display()),
      m_waylandDisplay(m_choice.waylandDisplay()),
      m_context(std::make_unique<QOpenGLContext>()),
      m_home(QThread::currentThread())
{
    m_context->setFormat(m_driver->context().format());
    m_context->setShareContext(&m_driver->context());
    m_context->create(); // without one, nothing can be made current
    m_surface.setFormat(m_context->format());
    m_surface.create();
}

OpenGlRenderer::~OpenGlRenderer() = default;

void OpenGlRenderer::giveTo(QThread& thread)
{
    m_context->moveToThread(&thread);
}

mpv_render_context* OpenGlRenderer::enter()
{
    if (!hasAnswer() || !createRenderContext()) {
        return nullptr;
    }
    return m_renderContext;
}

bool OpenGlRenderer::createRenderContext()
{
    mpv_opengl_init_params functions = {.get_proc_address = functionOfDriver,
                                        .get_proc_address_ctx = nullptr};
    int advanced = 1; // frames are decoded into the driver's memory, on this thread's say
    std::array<mpv_render_param, 6> parameters = {{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &functions},
        {MPV_RENDER_PARAM_ADVANCED_CONTROL, &advanced},
    }};
    std::size_t count = 3;
    if (m_x11Display != nullptr) {
        parameters.at(count++) = {MPV_RENDER_PARAM_X11_DISPLAY, m_x11Display};
    }
    if (m_waylandDisplay != nullptr) {
        parameters.at(count++) = {MPV_RENDER_PARAM_WL_DISPLAY, m_waylandDisplay};
    }
    const int result = mpv_render_context_create(&m_renderContext, m_player, parameters.data());
    if (result < 0) {
        qCInfo(logErrors, "the player library cannot draw by OpenGL: %s", mpv_error_string(result));
        m_renderContext = nullptr;
    }
    return result >= 0;
}

/// The library asks for its context to be current, too, when it lets everything go.
void OpenGlRenderer::leave()
{
    if (m_renderContext != nullptr) {
        mpv_render_context_free(std::exchange(m_renderContext, nullptr));
    }
    if (QOpenGLContext::currentContext() != nullptr) {
        for (const auto& frame : m_frames) {
            gl().glDeleteFramebuffers(1, &frame->target);
            gl().glDeleteTextures(1, &frame->texture);
        }
        m_context->doneCurrent();
    }
    m_frames.clear();
    m_context->moveToThread(m_home);
}

PictureRenderer::Result OpenGlRenderer::render(const FrameWish& wish, RenderedFrame& frame)
{
    if (!hasAnswer()) {
        return Lost;
    }
    if (!m_choice.draws()) {
        return NotDrawn;
    }
    takeFreeFrame(wish.size, frame);
    if (frame.texture == nullptr) {
        return NotDrawn;
    }
    renderInto(*frame.texture);
    return hasAnswer() ? Drawn : Lost;
}

bool OpenGlRenderer::hasAnswer()
{
    return m_choice.answers() && m_context->isValid() && m_context->makeCurrent(&m_surface);
}

/// The windows may still be showing the one of before.
void OpenGlRenderer::takeFreeFrame(QSize size, RenderedFrame& frame)
{
    frame.texture.reset();
    forgetFreeFrames(size);
    const auto free = std::find_if(m_frames.begin(), m_frames.end(), [size](const auto& some) {
        return some.use_count() == 1 && some->size == size;
    });
    frame.texture = free != m_frames.end() ? *free : newFrame(size);
}

void OpenGlRenderer::forgetFreeFrames(QSize otherThan)
{
    std::erase_if(m_frames, [&](const auto& frame) {
        const bool goes = frame.use_count() == 1 && frame->size != otherThan;
        if (goes) {
            gl().glDeleteFramebuffers(1, &frame->target);
            gl().glDeleteTextures(1, &frame->texture);
        }
        return goes;
    });
}

/// Null where the driver has no room for it.
std::shared_ptr<OpenGlFrame> OpenGlRenderer::newFrame(QSize size)
{
    auto frame = std::make_shared<OpenGlFrame>();
    frame->size = size;
    gl().glGenTextures(1, &frame->texture);
    gl().glBindTexture(GL_TEXTURE_2D, frame->texture);
    gl().glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, size.width(), size.height(), 0, GL_RGBA,
                      GL_UNSIGNED_BYTE, nullptr);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    gl().glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl().glBindTexture(GL_TEXTURE_2D, 0);
    gl().glGenFramebuffers(1, &frame->target);
    gl().glBindFramebuffer(GL_FRAMEBUFFER, frame->target);
    gl().glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, frame->texture,
                                0);
    const bool isWhole = gl().glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    gl().glBindFramebuffer(GL_FRAMEBUFFER, 0);
    m_frames.push_back(frame);
    return isWhole ? frame : nullptr;
}

/// It blocks until the frame is due; this thread has nothing else to do. Finished, not only asked
/// for, as another context reads it.
void OpenGlRenderer::renderInto(const OpenGlFrame& frame)
{
    mpv_opengl_fbo target = {.fbo = static_cast<int>(frame.target),
                             .w = frame.size.width(),
                             .h = frame.size.height(),
                             .internal_format = GL_RGBA8};
    std::array<mpv_render_param, 2> parameters = {{
        {MPV_RENDER_PARAM_OPENGL_FBO, &target},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    mpv_render_context_render(m_renderContext, parameters.data());
    gl().glFinish();
}

QImage OpenGlRenderer::copy(const RenderedFrame& frame) const
{
    if (frame.texture == nullptr || !m_driver->makeCurrent()) {
        return frame.image;
    }
    const QSize size = frame.texture->size;
    QImage image(size, QImage::Format_RGBX8888);
    QOpenGLFunctions& functions = *m_driver->context().functions();
    GLuint reader = 0;
    functions.glGenFramebuffers(1, &reader);
    functions.glBindFramebuffer(GL_FRAMEBUFFER, reader);
    functions.glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                                     frame.texture->texture, 0);
    functions.glReadPixels(0, 0, size.width(), size.height(), GL_RGBA, GL_UNSIGNED_BYTE,
                           image.bits());
    functions.glDeleteFramebuffers(1, &reader);
    m_driver->doneCurrent();
    return image.convertToFormat(QImage::Format_RGB32);
}

} // namespace orvanta
