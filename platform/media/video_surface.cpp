#include "platform/media/video_surface.h"

#include "platform/media/opengl_view.h"
#include "platform/media/picture_source.h"

#include <QGuiApplication>
#include <QPainter>
#include <QWindow>

#include <utility>

namespace orvanta {

// Windows of X11 have 24 bits a pixel unless they ask for an alpha channel, or OpenGL chooses for
// them. Those of Wayland have it always, and are only said to be opaque.
bool blends(const QWidget& widget, const QString& platform)
{
    const QWidget* const window = widget.window();
    const QWindow* const made = window->windowHandle();
    return platform != u"xcb" || window->testAttribute(Qt::WA_TranslucentBackground) ||
           (made != nullptr && made->surfaceType() != QSurface::RasterSurface);
}

VideoSurface::VideoSurface(PictureSource* source, QWidget* parent)
    : QWidget(parent),
      m_source(source)
{
    setAttribute(Qt::WA_OpaquePaintEvent); // every pixel is painted, so none is erased first
    if (m_source != nullptr) {
        connect(m_source, &PictureSource::frameChanged, this, [this] {
            if (m_view == nullptr) {
                update();
            }
        });
        connect(m_source, &PictureSource::rendererChanged, this, [this] { chooseView(); });
        chooseView();
    }
}

void VideoSurface::chooseView()
{
    if (!m_source->isOpenGl()) {
        delete std::exchange(m_view, nullptr);
        update();
    } else if (m_view == nullptr) {
        m_view = new OpenGlView(*m_source, this);
    }
    announceBlending();
}

void VideoSurface::setKeepsLastFrame()
{
    if (m_source != nullptr) {
        m_source->setKeepsLastFrame(true);
    }
}

void VideoSurface::paintEvent(QPaintEvent* /*event*/)
{
    if (m_view != nullptr) {
        return;
    }
    QPainter painter(this);
    const QImage frame = m_source != nullptr ? m_source->frame() : QImage();
    if (frame.isNull()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    // In device pixels the frame is drawn as it is: a plain copy, no scaling.
    painter.scale(1.0 / devicePixelRatioF(), 1.0 / devicePixelRatioF());
    const QSize size = deviceSize();
    if (frame.size() == size) {
        painter.drawImage(0, 0, frame);
        return;
    }
    // While the window is being resized the newest frame still has the size before.
    QRect place(QPoint(), frame.size().scaled(size, Qt::KeepAspectRatio));
    place.moveCenter(QRect(QPoint(), size).center());
    painter.fillRect(QRect(QPoint(), size), Qt::black);
    painter.drawImage(place, frame);
}

void VideoSurface::resizeEvent(QResizeEvent* /*event*/)
{
    if (m_view != nullptr) {
        m_view->setGeometry(rect());
    }
    announceSize();
}

void VideoSurface::showEvent(QShowEvent* /*event*/)
{
    announceSize();
}

void VideoSurface::hideEvent(QHideEvent* /*event*/)
{
    announceSize();
}

void VideoSurface::announceSize()
{
    if (m_source != nullptr) {
        announceBlending();
        m_source->setTargetSize(isVisible() ? deviceSize() : QSize());
    }
}

void VideoSurface::announceBlending()
{
    m_source->setBlended(blends(*this, QGuiApplication::platformName()));
}

QSize VideoSurface::deviceSize() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

} // namespace orvanta
