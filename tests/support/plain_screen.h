// A full-screen mode without a screen.
#pragma once

#include "playback/keyboard.h"

namespace orvanta {

/// Only remembers whether it is full.
struct PlainScreen : FullScreenControl
{
    bool on = false;
    [[nodiscard]] bool isFullScreen() const override { return on; }
    void setFullScreen(bool wanted) override { on = wanted; }
};

} // namespace orvanta
