// Packets: any bytes are read without harm, and what is read can be written and read again.

#include "core/packet_file.h"
#include "core/playlist_entry.h"
#include "core/run_time_error.h"
#include "tests/fuzz/fuzzing.h"

using namespace orvanta;
using namespace orvanta::fuzz;

static bool isExpected(const RuntimeError& error)
{
    return error.number() == ErrorNumber::TypeMismatch ||
           error.number() == ErrorNumber::SubscriptOutOfRange ||
           error.number() == ErrorNumber::Overflow || error.number() == ErrorNumber::OutOfMemory;
}

static PlaylistEntry readPacket(const QString& file)
{
    PlaylistEntry entry;
    try {
        readPacketInto(entry, file);
    } catch (const RuntimeError& error) {
        require(isExpected(error), "a spoilt packet raises one of its errors");
    }
    require(entry.Clips.size() <= 32767, "a packet has no more entries than it can count");
    return entry;
}

static QStringList readEntries(const QString& file)
{
    QStringList entries;
    try {
        readClipListEntries(file, entries);
    } catch (const RuntimeError& error) {
        require(isExpected(error), "a spoilt packet raises one of its errors");
    }
    return entries;
}

/// What a reader has cut (blanks, quotes, 2047 characters) is cut again at most once more.
static void writeAgain(const QStringList& entries)
{
    constexpr qsizetype kSome = 64; // enough to find what one entry does to another
    const QString copy = room() + QStringLiteral("/copy.vxl");
    writeClipListPacket(copy, entries.first(std::min(entries.size(), kSome)));
    const QStringList once = readEntries(copy);
    require(once.size() == std::min(entries.size(), kSome), "no entry is lost");
    QFile::remove(copy);
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fileWith("packet.vxl", Input(data, size).rest());
    const PlaylistEntry entry = readPacket(file);
    (void)readBrakeDocument(file);
    if (!entry.HasBrakes) {
        writeAgain(readEntries(file));
    }
    return 0;
}
