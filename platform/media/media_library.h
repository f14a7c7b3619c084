// The player library: what can be had of it, and which one is at work.
#pragma once

#include "platform/media/media_control.h"
#include "platform/media/mpv_options.h"
#include "platform/media/opengl_driver.h"

#include <QString>

#include <memory>
#include <optional>

namespace orvanta {

/// A player of the absolute paths of regular files, and of nothing else. extraOptions: further
/// options of the library (name, value), for measurements and tests. choice: when its first file is
/// loaded, it chooses what draws its pictures; without one it is the processor. Raises 53 when the
/// library cannot be used (wrong version, mpv_create fails).
[[nodiscard]] std::unique_ptr<MediaControl>
makeMediaControl(const MpvOptionList& extraOptions = {},
                 std::optional<RendererChoice> choice = std::nullopt);

/// Raises 53 when the library's version does not fit or it cannot be started.
void checkMediaLibrary();

/// For people, not for decisions.
struct MediaLibraryVersions
{
    QString player; // "mpv 0.35.1"
    QString codecs; // of FFmpeg, "5.1.6"
};

/// Asks the library that is loaded now. Takes some milliseconds. Empty texts when it cannot say.
[[nodiscard]] MediaLibraryVersions mediaLibraryVersions();

} // namespace orvanta
