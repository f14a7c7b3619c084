#include "app/quit_guard.h"

#include <chrono>
#include <cstdlib>
#include <system_error>
#include <thread>

namespace orvanta {

constexpr std::chrono::seconds kPatienceWithPlayer(2);

void leaveSoon(int exitStatus)
{
    try {
        std::thread([exitStatus] {
            std::this_thread::sleep_for(kPatienceWithPlayer);
            std::_Exit(exitStatus);
        }).detach();
    } catch (const std::system_error&) { // without a thread it waits, as ever
    }
}

} // namespace orvanta
