#include "model/editing/edit_step.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvanta {

namespace {

template <typename... Cases> struct Overloaded : Cases...
{
    using Cases::operator()...;
};
template <typename... Cases> Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

static std::ptrdiff_t offset(std::size_t index)
{
    return static_cast<std::ptrdiff_t>(index);
}

static int numberOf(std::size_t index)
{
    return static_cast<int>(index) + 1;
}

static EditChange inverseOf(const EditChange& change)
{
    return std::visit(
        Overloaded{
            [](const LinesExchange& lines) -> EditChange {
                return LinesExchange{lines.packet, lines.first, lines.inserted, lines.removed};
            },
            [](const PacketsExchange& packets) -> EditChange {
                return PacketsExchange{packets.first, packets.inserted, packets.removed};
            },
            [](const LineMove& move) -> EditChange {
                return LineMove{move.toPacket, move.to, move.fromPacket, move.from};
            },
            [](const PacketMove& move) -> EditChange {
                return PacketMove{move.to, move.from};
            },
        },
        change);
}

EditStep inverseOf(const EditStep& step)
{
    EditStep inverse = {
        .name = step.name, .changes = {}, .before = step.after, .after = step.before};
    std::transform(step.changes.rbegin(), step.changes.rend(), std::back_inserter(inverse.changes),
                   [](const EditChange& change) { return inverseOf(change); });
    return inverse;
}

template <typename Entry>
static void exchange(std::vector<Entry>& entries, std::size_t first, std::size_t removed,
                     const std::vector<Entry>& inserted)
{
    const auto begin = entries.begin() + offset(first);
    const std::size_t same = std::min(removed, inserted.size());
    std::copy_n(inserted.begin(), same, begin);
    if (removed > same) {
        entries.erase(begin + offset(same), begin + offset(removed));
    } else {
        entries.insert(begin + offset(same), inserted.begin() + offset(same), inserted.end());
    }
}

/// Raises 6 where the list would get longer than its numbers reach.
template <typename Entry>
static Int16 countAfter(const std::vector<Entry>& entries, std::size_t removed,
                        std::size_t inserted)
{
    return Int16(static_cast<qint64>(entries.size() - removed + inserted));
}

static void apply(PlaylistState& playlist, const LinesExchange& lines)
{
    PlaylistEntry& packet = playlist.Playlist[lines.packet];
    const Int16 count = countAfter(packet.Clips, lines.removed.size(), lines.inserted.size());
    exchange(packet.Clips, lines.first, lines.removed.size(), lines.inserted);
    packet.ClipCount = count;
}

static void apply(PlaylistState& playlist, const PacketsExchange& packets)
{
    const Int16 count =
        countAfter(playlist.Playlist, packets.removed.size(), packets.inserted.size());
    exchange(playlist.Playlist, packets.first, packets.removed.size(), packets.inserted);
    playlist.PlaylistCount = count;
}

static void apply(PlaylistState& playlist, const LineMove& move)
{
    PlaylistEntry& source = playlist.Playlist[move.fromPacket];
    PlaylistEntry& target = playlist.Playlist[move.toPacket];
    if (&source != &target) {
        target.ClipCount += 1;
        source.ClipCount += -1;
    }
    const auto from = source.Clips.begin() + offset(move.from);
    ClipEntry line = std::move(*from);
    source.Clips.erase(from);
    target.Clips.insert(target.Clips.begin() + offset(move.to), std::move(line));
}

static void apply(PlaylistState& playlist, const PacketMove& move)
{
    auto& packets = playlist.Playlist;
    const auto from = packets.begin() + offset(move.from);
    const auto to = packets.begin() + offset(move.to);
    if (from < to) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
}

void applyStep(PlaylistState& playlist, const EditStep& step)
{
    std::size_t done = 0;
    try {
        for (const EditChange& change : step.changes) {
            std::visit([&](const auto& what) { apply(playlist, what); }, change);
            ++done;
        }
    } catch (const RuntimeError&) {
        while (done > 0) {
            const EditChange back = inverseOf(step.changes[--done]);
            std::visit([&](const auto& what) { apply(playlist, what); }, back);
        }
        throw;
    }
    ++playlist.revision;
}

using Moved = std::optional<EditPlace>;

/// Where an entry is, counted from 1, when others before it or it itself were exchanged; 0: gone.
static int numberAfter(int number, std::size_t first, std::size_t removed, std::size_t inserted)
{
    const int begin = numberOf(first);
    const int end = begin + static_cast<int>(removed);
    if (number < begin) {
        return number;
    }
    if (number >= end) {
        return number - static_cast<int>(removed) + static_cast<int>(inserted);
    }
    return number < begin + static_cast<int>(inserted) ? number : 0;
}

/// Where an entry is when one went from one place to another.
static int numberAfterMove(int number, std::size_t from, std::size_t to)
{
    if (number == numberOf(from)) {
        return numberOf(to);
    }
    const int without = number > numberOf(from) ? number - 1 : number;
    return without >= numberOf(to) ? without + 1 : without;
}

static Moved placeAfter(const LinesExchange& lines, EditPlace place)
{
    if (place.packet != numberOf(lines.packet) || place.line == 0) {
        return place;
    }
    place.line = numberAfter(place.line, lines.first, lines.removed.size(), lines.inserted.size());
    return place.line == 0 ? Moved() : Moved(place);
}

static Moved placeAfter(const PacketsExchange& packets, EditPlace place)
{
    const int packet =
        numberAfter(place.packet, packets.first, packets.removed.size(), packets.inserted.size());
    if (packet == 0) {
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(place.packet - 1) - packets.first;
    if (place.packet - 1 >= static_cast<int>(packets.first) && index < packets.removed.size() &&
        place.line > packets.inserted[index].ClipCount.value()) {
        return std::nullopt;
    }
    return EditPlace{packet, place.line};
}

static Moved placeAfter(const LineMove& move, EditPlace place)
{
    const bool inSource = place.packet == numberOf(move.fromPacket);
    const bool inTarget = place.packet == numberOf(move.toPacket);
    if (place.line == 0 || (!inSource && !inTarget)) {
        return place;
    }
    if (inSource && place.line == numberOf(move.from)) {
        return EditPlace{numberOf(move.toPacket), numberOf(move.to)};
    }
    if (inSource && place.line > numberOf(move.from)) {
        --place.line;
    }
    if (inTarget && place.line >= numberOf(move.to)) {
        ++place.line;
    }
    return place;
}

static Moved placeAfter(const PacketMove& move, EditPlace place)
{
    return EditPlace{numberAfterMove(place.packet, move.from, move.to), place.line};
}

std::optional<EditPlace> placeAfter(const EditStep& step, EditPlace place)
{
    Moved moved = place;
    for (const EditChange& change : step.changes) {
        moved = std::visit([&](const auto& what) { return placeAfter(what, *moved); }, change);
        if (!moved) {
            break;
        }
    }
    return moved;
}

} // namespace orvanta
