// What only a user without the administrator's rights meets.
#pragma once

#include "tests/support/child_process.h"

#include <grp.h>
#include <unistd.h>

namespace orvanta::test {

inline constexpr uid_t kNobody = 65534;

/// Gives up an administrator's rights for good, but where they are needed for the counts of lines;
/// whoever has none stays who they are.
inline bool becomePlainUser()
{
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setresgid(kNobody, kNobody, kNobody) == 0 &&
            setresuid(kNobody, kNobody, countsLines() ? 0 : kNobody) == 0);
}

/// Runs the action as a plain user, in a process of its own: what it makes must lie in a folder of
/// its own. True when all that it expects holds; what does not is said as in any test.
template <typename Action> [[nodiscard]] bool holdsForPlainUser(const Action& action)
{
    Child child([&action] {
        if (!becomePlainUser()) {
            _exit(2);
        }
        action();
        if (testing::Test::HasFailure()) {
            _exit(1);
        }
    });
    return child.endsWell();
}

} // namespace orvanta::test
