#include "platform/screen/window_stacking.h"
#include "tests/support/private_bus.h"
#include "tests/support/probe.h"
#include "tests/support/virtual_display.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

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

/// xfwm4 gives a window that raises itself the keyboard.
TEST(WindowStacking, AWindowInFrontKeepsTheKeyboardWhileAnotherIsPutBehindIt)
{
    if (QStandardPaths::findExecutable(u"xfwm4"_s).isEmpty()) {
        GTEST_SKIP() << "xfwm4 is not installed";
    }
    const test::PrivateBus bus;
    const VirtualDisplay display(u"xfwm4"_s, bus.address());
    Probe program;
    program.setProcessEnvironment(display.environment());
    program.startProgram("stacking_probe", {u"keyboard"_s});
    EXPECT_EQ(program.nextLine(90000), "managed");
    EXPECT_EQ(program.nextLine(90000), "shown");
    constexpr int kTurns = 5;
    for (int turn = 0; turn < kTurns; ++turn) {
        for (const char* outcome : {"first in front", "second in front", "first behind second",
                                    "answered", "answered again", "second has the keyboard"}) {
            EXPECT_EQ(program.nextLine(90000), outcome);
        }
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
