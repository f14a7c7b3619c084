// Groups: any bytes are read without harm, even a group that names itself or a spoilt packet.

#include "core/group_file.h"
#include "core/playlist_entry.h"
#include "core/run_time_error.h"
#include "tests/fuzz/fuzzing.h"

using namespace orvanta;
using namespace orvanta::fuzz;

template <typename Read> static void readsOrRaises(const Read& read)
{
    try {
        read();
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::TypeMismatch ||
                    error.number() == ErrorNumber::SubscriptOutOfRange ||
                    error.number() == ErrorNumber::Overflow ||
                    error.number() == ErrorNumber::OutOfMemory,
                "a spoilt group raises one of its errors");
    }
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr qsizetype kRoom = 5000; // entries; a million take seconds
    Input input(data, size);
    (void)fileWith("packet.vxl", input.bytes());
    const QString file = fileWith("group.vxg", input.rest());
    std::vector<PlaylistEntry> packets;
    readsOrRaises([&] { readGroupInto(packets, file, {}, kRoom); });
    require(packets.size() <= 32767, "a group has no more members than it can count");
    std::size_t entries = 0;
    for (const PlaylistEntry& packet : packets) {
        entries += packet.Clips.size();
    }
    require(entries <= kRoom, "no more entries are read than there is room for");
    QStringList lines;
    readsOrRaises([&] { readGroupEntries(file, lines); });
    return 0;
}
