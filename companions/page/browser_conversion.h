// A clip as browsers play it, made by the program ffmpeg. The clip itself stays as it is.
#pragma once

#include "platform/media/browser_clip.h"

#include <QStringList>

#include <functional>

namespace orvanta {

/// What the ffmpeg of this machine can write.
struct BrowserEncoders
{
    bool isThere = false;
    bool h264 = false;
    bool vp8 = false;
    bool opus = false;

    /// Whether there is a way for every clip.
    [[nodiscard]] bool canConvert() const { return isThere && (h264 || (vp8 && opus)); }
};

/// Asks the program; takes a moment.
[[nodiscard]] BrowserEncoders browserEncoders();

/// How a clip is converted: what browsers can play of it stays as it is, in another container.
struct BrowserRecipe
{
    QString suffix;        // "mp4", "webm"
    QString type;          // as a browser is asked
    QStringList arguments; // of ffmpeg, between the input and the output
};
[[nodiscard]] BrowserRecipe browserRecipe(const BrowserClip& clip, const BrowserEncoders& encoders);

struct ConversionWatch
{
    std::function<void(double)> reached = [](double) {}; // 0 to 1
    std::function<bool()> isStopped = [] { return false; };
};

/// Converts a clip into a new file; blocks, for a thread that works. Empty when it is done; else
/// why not, in the program's words or "stopped", and there is no target.
[[nodiscard]] QString convertForBrowsers(const QString& source, const BrowserClip& clip,
                                         const BrowserRecipe& recipe, const QString& target,
                                         const ConversionWatch& watch);

} // namespace orvanta
