// The limit for the way out.
#include "app/quit_guard.h"
#include "tests/support/child_process.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace orvanta::test {

TEST(QuitGuard, EndsAProcessThatStillWaitsForSomething)
{
    Child waiting([] {
        leaveSoon(0);
        for (;;) {
            ::pause();
        }
    });
    EXPECT_TRUE(waiting.endsWell());
}

TEST(QuitGuard, KeepsTheExitStatus)
{
    Child waiting([] {
        leaveSoon(3);
        for (;;) {
            ::pause();
        }
    });
    EXPECT_FALSE(waiting.endsWell());
}

} // namespace orvanta::test
