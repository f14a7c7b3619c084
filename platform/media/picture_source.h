// Frames of the running clip, for the surface that shows them.
#pragma once

#include <QImage>
#include <QObject>

#include <memory>

namespace orvanta {

/// A frame in the graphics processor's memory, its top line first: a texture of the contexts that
/// share with the program's.
struct OpenGlFrame
{
    unsigned texture = 0;
    unsigned target = 0; // the framebuffer through which it is drawn; of the renderer's context
    QSize size;
};

/// Delivers the current frame. Belongs to the interface thread.
class PictureSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The size in device pixels in which the surface wants its frames, aspect kept, black bars.
    virtual void setTargetSize(QSize pixels) = 0;
    /// Whether the fourth byte of a pixel is taken for an opacity where it is shown, so that it
    /// must say opaque. Until it is said, it is; to be said before the target size.
    virtual void setBlended(bool /*blended*/) {}
    /// The newest frame in the target size; null before the first. While the next clip is being
    /// opened, the last one of the clip before. Of an OpenGL source this is a copy, made now.
    [[nodiscard]] virtual QImage frame() const = 0;
    /// Whether a clip with a picture is open.
    [[nodiscard]] virtual bool hasPicture() const = 0;
    /// The last frame stays even when there is no picture any more, until the surface wants none.
    virtual void setKeepsLastFrame(bool /*keeps*/) {}

    /// Whether the frames are to be shown by OpenGL.
    [[nodiscard]] virtual bool isOpenGl() const { return false; }
    /// The same as frame(), where isOpenGl(). Nothing is drawn into it as long as it is held.
    [[nodiscard]] virtual std::shared_ptr<const OpenGlFrame> texture() const { return nullptr; }
    /// The newest frame is on the screen, or is not to come there. The player waits for it.
    virtual void frameSwapped() {}

Q_SIGNALS:
    void frameChanged();
    /// isOpenGl() is another.
    void rendererChanged();
};

} // namespace orvanta
