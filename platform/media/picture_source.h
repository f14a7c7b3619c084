// Frames of the running clip, for the surface that paints them.
#pragma once

#include <QImage>
#include <QObject>

namespace orvanta {

/// Delivers the current frame. Belongs to the interface thread.
class PictureSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The size in device pixels in which the surface wants its frames, aspect kept, black bars.
    virtual void setTargetSize(QSize pixels) = 0;
    /// The newest frame in the target size; null before the first. While the next clip is being
    /// opened, the last one of the clip before.
    [[nodiscard]] virtual QImage frame() const = 0;
    /// Whether a clip with a picture is open.
    [[nodiscard]] virtual bool hasPicture() const = 0;
    /// The last frame stays even when there is no picture any more, until the surface wants none.
    virtual void setKeepsLastFrame(bool /*keeps*/) {}

Q_SIGNALS:
    void frameChanged();
};

} // namespace orvanta
