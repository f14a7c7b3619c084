// The whole sound of a clip, decoded once.
#pragma once

#include <QString>

#include <functional>

struct AVFrame;

namespace orvanta {

class ClipInput;

/// What became of it.
struct SoundReading
{
    bool isWhole = false; // all that the file has; false: stopped, or the disk failed
    QString error;        // empty, or why there is nothing, or less than there should be
};

/// Decodes the sound that the player plays by itself: the one marked as the usual one, else the
/// first. each: a frame and the second of its first sample by the player's clock. A clip without
/// sound is whole and has no frame.
[[nodiscard]] SoundReading readSound(ClipInput& input,
                                     const std::function<void(const AVFrame&, double)>& each);

} // namespace orvanta
