#include "platform/media/retired_player.h"

#include "core/log.h"

#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace orvanta {

void retire(RetiredPlayer player, std::chrono::milliseconds patience)
{
    auto retired = std::make_shared<RetiredPlayer>(std::move(player));
    std::promise<void> isGone;
    const std::future<void> end = isGone.get_future();
    try {
        std::thread([retired = std::move(retired), isGone = std::move(isGone)]() mutable {
            retired.reset();
            isGone.set_value();
        }).detach();
        end.wait_for(patience);
    } catch (const std::system_error& error) { // the player is gone all the same
        qCInfo(logErrors, "no thread for the end of a player: %s", error.what());
    }
}

} // namespace orvanta
