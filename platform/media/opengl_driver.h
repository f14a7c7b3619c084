// Whether the video window's pictures are drawn by OpenGL, and the driver that would do it.
#pragma once

#include <QByteArray>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace orvanta {

enum class RendererWish
{
    Automatic, // OpenGL where a graphics processor does it
    OpenGl,    // also where the processor has to do it
    Software,
};

/// What a player is told about the drawing of its pictures.
struct RendererChoice
{
    RendererWish wish = RendererWish::Software;
    QString failedDriver = {}; // the one that failed earlier: not asked once more, unless wished
    std::function<void(const QString& driver)> remember = [](const QString&) {};
    QString devices = QStringLiteral("/dev"); // where a graphics processor's device would lie
    std::function<void*()> waylandDisplay = [] { return nullptr; }; // of the program, if it has one
    std::chrono::milliseconds firstFrame{1000};                     // the longest wait for it
    // Whether the driver still answers, and whether it draws. Called on the renderer's thread;
    // tests say no.
    std::function<bool()> answers = [] { return true; };
    std::function<bool()> draws = [] { return true; };
};

/// By the setting's text: "opengl", "software"; all else is automatic.
[[nodiscard]] RendererWish rendererWish(QStringView text);

/// Whether a driver's GL_RENDERER is a program that draws by the processor.
[[nodiscard]] bool drawsByProcessor(QByteArrayView renderer);

/// Whether a graphics processor's device lies in this folder.
[[nodiscard]] bool hasGraphicsDevice(const QString& devices = QStringLiteral("/dev"));

/// The OpenGL driver as long as it is in use: the context with which all others share, those of the
/// renderer and of the windows that show its frames. Interface thread only.
class OpenGlDriver
{
public:
    /// The one in use, or one that is loaded now, which takes a while. Null: there is none that
    /// would do.
    [[nodiscard]] static std::shared_ptr<OpenGlDriver> load();
    ~OpenGlDriver();
    OpenGlDriver(const OpenGlDriver&) = delete;
    OpenGlDriver& operator=(const OpenGlDriver&) = delete;

    /// GL_RENDERER.
    [[nodiscard]] const QByteArray& renderer() const { return m_renderer; }
    /// With GL_VERSION: what is remembered of one that failed.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QOpenGLContext& context() { return m_context; }
    /// False when the driver does not answer any more.
    [[nodiscard]] bool makeCurrent() { return m_context.makeCurrent(&m_surface); }
    void doneCurrent() { m_context.doneCurrent(); }

private:
    OpenGlDriver() = default;
    [[nodiscard]] bool begin();
    [[nodiscard]] bool readNames();

    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    QByteArray m_renderer;
    QByteArray m_version;
};

/// The driver that is to draw, or null with the reason.
struct OpenGlOffer
{
    std::shared_ptr<OpenGlDriver> driver;
    QString why;
};
/// Loads no driver where none is wanted or there is no device of a graphics processor.
[[nodiscard]] OpenGlOffer offeredOpenGl(const RendererChoice& choice);

} // namespace orvanta
