// A full-screen mode that only remembers whether it is on.
#pragma once

#include "playback/keyboard.h"

namespace orvanta::test {

struct PlainScreen : FullScreenControl
{
    bool on = false;
    [[nodiscard]] bool isFullScreen() const override { return on; }
    void setFullScreen(bool wanted) override { on = wanted; }
};

} // namespace orvanta::test
