// What a browser can make of a clip: pure judgement of its container and its codecs, for Chromium
// and Firefox as Debian has them.
#pragma once

#include <QString>

#include <functional>

namespace orvanta {

/// Containers that browsers play.
enum class BrowserContainer
{
    None, // another one
    Mp4,
    Webm,
    Sound, // Ogg, MP3, WAV, FLAC, AAC
};

struct BrowserClip
{
    bool isOpened = false;
    QString error;      // why not
    double seconds = 0; // 0: not known
    int picture = -1;   // number of the stream in the file, from 0; -1: none
    int sound = -1;     // the same
    BrowserContainer container = BrowserContainer::None;
    /// Into which container each stream may be put as it is; None: into no one.
    BrowserContainer pictureGoesInto = BrowserContainer::None;
    bool soundGoesIntoMp4 = false;
    bool soundGoesIntoWebm = false;
    bool soundPlaysHere = false; // in the container that it is in

    [[nodiscard]] bool hasPicture() const { return picture >= 0; }
    [[nodiscard]] bool isPlayable() const;
};

/// Reads the beginning of the clip and nothing else. stopped: asked often.
[[nodiscard]] BrowserClip browserClip(const QString& path, const std::function<bool()>& stopped);

} // namespace orvanta
