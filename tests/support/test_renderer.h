// Which of the two renderers draws in this run of the tests.
#pragma once

#include "platform/media/opengl_driver.h"

#include <optional>

namespace orvanta::test {

/// ORVANTA_TEST_RENDERER=opengl: all tests of a program once more by OpenGL. It needs a display.
inline bool isOpenGlRun()
{
    return qgetenv("ORVANTA_TEST_RENDERER") == "opengl";
}

/// A busy machine without a graphics processor takes long for the first frame.
inline RendererChoice openGlChoice()
{
    return {.wish = RendererWish::OpenGl, .firstFrame = std::chrono::seconds(60)};
}

inline std::optional<RendererChoice> rendererOfRun()
{
    return isOpenGlRun() ? std::optional(openGlChoice()) : std::nullopt;
}

} // namespace orvanta::test
