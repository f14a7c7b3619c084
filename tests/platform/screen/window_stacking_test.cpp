#include "platform/screen/window_stacking.h"
#include "tests/support/probe.h"
#include "tests/support/virtual_display.h"

#include <gtest/gtest.h>

namespace orvanta {

TEST(WindowStacking, TheWindowManagerDoesWhatItIsAsked)
{
    if (!VirtualDisplay::isInstalled()) {
        GTEST_SKIP() << "Xvfb or openbox is not installed";
    }
    const VirtualDisplay display;
    Probe program;
    program.setProcessEnvironment(display.environment());
    program.startProgram("stacking_probe", {});
    for (const char* outcome :
         {"managed", "shown", "on top", "back", "the same window", "first in front",
          "second in front", "first in front", "first behind second", "second behind first"}) {
        EXPECT_EQ(program.nextLine(90000), outcome);
    }
}

TEST(WindowStacking, WithoutAWindowNothingHappens)
{
    EXPECT_NO_FATAL_FAILURE({
        bringToFront(nullptr);
        setAlwaysOnTop(nullptr, true);
        stackBehind(nullptr, nullptr);
    });
}

} // namespace orvanta
