#include "platform/media/opengl_view.h"

#include "platform/media/picture_source.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QWindow>

namespace orvanta {

OpenGlView::OpenGlView(PictureSource& source, QWidget* parent)
    : QOpenGLWidget(parent),
      m_source(source)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(parent->rect());
    connect(&m_source, &PictureSource::frameChanged, this, &OpenGlView::showFrame);
    connect(this, &QOpenGLWidget::frameSwapped, &m_source, &PictureSource::frameSwapped);
    show();
}

OpenGlView::~OpenGlView() = default;

/// In a window that nobody sees nothing is swapped, and the player must not wait for it.
void OpenGlView::showFrame()
{
    const QWindow* window = this->window()->windowHandle();
    update();
    if (!isVisible() || window == nullptr || !window->isExposed()) {
        m_source.frameSwapped();
    }
}

void OpenGlView::paintGL()
{
    QOpenGLFunctions& gl = *context()->functions();
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    gl.glDisable(GL_SCISSOR_TEST);
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    m_shown = m_source.texture();
    if (m_shown != nullptr) {
        draw(*m_shown);
    }
    // What lies under the window would shine through a picture whose opacity is not whole.
    gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

/// The top line is the texture's first and the window's last. While the window is being resized the
/// newest frame still has the size before.
void OpenGlView::draw(const OpenGlFrame& frame)
{
    QOpenGLExtraFunctions& gl = *context()->extraFunctions();
    const QSize whole = (QSizeF(size()) * devicePixelRatioF()).toSize();
    QRect place(QPoint(), frame.size.scaled(whole, Qt::KeepAspectRatio));
    place.moveCenter(QRect(QPoint(), whole).center());
    const int bottom = whole.height() - place.y() - place.height();
    GLuint reader = 0;
    gl.glGenFramebuffers(1, &reader);
    gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, reader);
    gl.glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                              frame.texture, 0);
    gl.glBlitFramebuffer(0, frame.size.height(), frame.size.width(), 0, place.x(), bottom,
                         place.x() + place.width(), bottom + place.height(), GL_COLOR_BUFFER_BIT,
                         place.size() == frame.size ? GL_NEAREST : GL_LINEAR);
    gl.glDeleteFramebuffers(1, &reader);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
}

} // namespace orvanta
