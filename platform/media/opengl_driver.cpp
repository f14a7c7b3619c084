#include "platform/media/opengl_driver.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QOpenGLFunctions>

#include <algorithm>
#include <array>

// The toolkit's own way for a module that begins to need OpenGL when the application is there
// already; its header does not name it.
// NOLINTNEXTLINE(readability-identifier-naming)
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr auto kX11Integration = "QT_XCB_GL_INTEGRATION";
constexpr int kLowestVersion = 3; // framebuffers that are copied from one to another

RendererWish rendererWish(QStringView text)
{
    if (text == u"opengl") {
        return RendererWish::OpenGl;
    }
    return text == u"software" ? RendererWish::Software : RendererWish::Automatic;
}

bool drawsByProcessor(QByteArrayView renderer)
{
    constexpr std::array kPrograms = {"llvmpipe", "softpipe", "swrast", "lavapipe", "software"};
    const QByteArray name = renderer.toByteArray().toLower();
    return std::any_of(kPrograms.begin(), kPrograms.end(),
                       [&](const char* program) { return name.contains(program); });
}

bool hasGraphicsDevice(const QString& devices)
{
    const bool hasNodes =
        !QDir(devices + u"/dri"_s).entryList({u"renderD*"_s}, QDir::Files | QDir::System).isEmpty();
    return hasNodes || QFileInfo::exists(devices + u"/nvidiactl"_s);
}

std::shared_ptr<OpenGlDriver> OpenGlDriver::load()
{
    static std::weak_ptr<OpenGlDriver> inUse;
    if (std::shared_ptr<OpenGlDriver> driver = inUse.lock()) {
        return driver;
    }
    // Only programs with windows have drivers.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
        return nullptr;
    }
    std::shared_ptr<OpenGlDriver> driver(new OpenGlDriver);
    if (!driver->begin()) {
        return nullptr;
    }
    inUse = driver;
    return driver;
}

/// Decoded pictures come to X11's windows without a copy by EGL alone. The toolkit reads its
/// variable when it needs OpenGL for the first time, which is now; where EGL is missing it goes on
/// with GLX. What the program starts chooses for itself.
static bool createContext(QOpenGLContext& context)
{
    const bool isFree = qEnvironmentVariableIsEmpty(kX11Integration);
    if (isFree) {
        qputenv(kX11Integration, "xcb_egl");
    }
    const bool created = QOpenGLContext::supportsThreadedOpenGL() && context.create();
    if (isFree) {
        qunsetenv(kX11Integration);
    }
    return created;
}

bool OpenGlDriver::begin()
{
    if (!createContext(m_context)) {
        return false;
    }
    m_surface.setFormat(m_context.format());
    m_surface.create();
    if (!makeCurrent()) {
        return false;
    }
    const bool isNamed = readNames();
    doneCurrent();
    if (isNamed && m_context.format().majorVersion() >= kLowestVersion) {
        qt_gl_set_global_share_context(&m_context);
        return true;
    }
    return false;
}

OpenGlDriver::~OpenGlDriver()
{
    if (QOpenGLContext::globalShareContext() == &m_context) {
        qt_gl_set_global_share_context(nullptr);
    }
}

static QByteArray textOf(QOpenGLFunctions& gl, GLenum name)
{
    const auto* text = gl.glGetString(name);
    return text == nullptr ? QByteArray() : QByteArray(reinterpret_cast<const char*>(text));
}

bool OpenGlDriver::readNames()
{
    m_renderer = textOf(*m_context.functions(), GL_RENDERER);
    m_version = textOf(*m_context.functions(), GL_VERSION);
    return !m_renderer.isEmpty();
}

QString OpenGlDriver::name() const
{
    return QString::fromLatin1(m_renderer + ", " + m_version).simplified();
}

OpenGlOffer offeredOpenGl(const RendererChoice& choice)
{
    if (choice.wish == RendererWish::Software) {
        return {.driver = nullptr, .why = u"as the settings say"_s};
    }
    const bool isForced = choice.wish == RendererWish::OpenGl;
    if (!isForced && !hasGraphicsDevice(choice.devices)) {
        return {.driver = nullptr, .why = u"there is no graphics processor"_s};
    }
    std::shared_ptr<OpenGlDriver> driver = OpenGlDriver::load();
    if (!driver) {
        return {.driver = nullptr, .why = u"OpenGL does not begin"_s};
    }
    const QString name = driver->name();
    if (isForced) {
        return {.driver = driver, .why = name + u", as the settings say"_s};
    }
    if (drawsByProcessor(driver->renderer())) {
        return {.driver = nullptr, .why = name + u" draws by the processor, too"_s};
    }
    if (name == choice.failedDriver) {
        return {.driver = nullptr, .why = name + u" has failed before"_s};
    }
    return {.driver = driver, .why = name};
}

} // namespace orvanta
