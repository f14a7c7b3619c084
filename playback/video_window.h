// What the playback engine needs of the video window.
#pragma once

#include "model/module1.h"

#include <QString>

namespace orvanta {

/// The video window as the engine sees it; its mirror fields are the channel back.
class VideoWindow
{
public:
    virtual ~VideoWindow() = default;

    [[nodiscard]] virtual VideoMirror& mirror() = 0;
    /// Before a file is loaded: control visible and in the size by which a clip without a picture
    /// is recognised, window out of sight.
    virtual void prepareForMedia() = 0;
    virtual void moveOutOfSight() = 0;
    /// Still picture for clips without one of their own: the path of an existing file, or empty.
    virtual void setStillPicture(const QString& file) = 0;
    virtual void showWindow(bool show) = 0;
};

} // namespace orvanta
