// Preloaded in front of the player library: one that cannot be used. UNUSABLE_PLAYER says how:
// "old" for an interface of another age, anything else for one that creates no player.

#include <mpv/client.h>

#include <cstdlib>
#include <string_view>

extern "C" {

unsigned long mpv_client_api_version()
{
    const char* how = std::getenv("UNUSABLE_PLAYER");
    const bool isOld = how != nullptr && std::string_view(how) == "old";
    return isOld ? MPV_MAKE_VERSION(1, 109) : MPV_CLIENT_API_VERSION;
}

mpv_handle* mpv_create()
{
    return nullptr;
}
}
